#pragma once

#include "editor/ResourceManifest.h"
#include "engine/KestrelProcessor.h"
#include "ui_pro/controls/support/DiagnosticsReport.h"

namespace kestreleq
{

/** What the support panel and its report tell, as of now. Message thread. */
quillon::ui_pro::controls::DiagnosticsRecord makeSupportRecord (
    const KestrelProcessor& processor, const ResourceManifest& manifest);

} // namespace kestreleq
