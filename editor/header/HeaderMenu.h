#pragma once

#include "editor/ResourceManifest.h"
#include "ui_pro/controls/header/MenuItem.h"

#include <vector>

namespace kestreleq
{

/** What the header's menu offers, with the manifest's links. */
std::vector<quillon::ui_pro::controls::MenuItem> makeMenuItems (const ResourceManifest& manifest);

} // namespace kestreleq
