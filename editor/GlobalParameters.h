#pragma once

#include "engine/parameters/ParameterTable.h"
#include "ui_pro/controls/panels/ParameterIds.h"

namespace kestreleq
{

/** What the library's scaffold calls our parameters. */
inline quillon::ui_pro::controls::ParameterIds globalParameters()
{
    const auto idOf = [] (Parameter parameter) { return infoOf (parameter).id; };

    quillon::ui_pro::controls::ParameterIds ids;
    ids.bypass = idOf (Parameter::bypass);
    ids.link = idOf (Parameter::link);
    ids.msMode = idOf (Parameter::msMode);
    ids.inGainLink = idOf (Parameter::inGainLink);
    ids.outGainLink = idOf (Parameter::outGainLink);
    ids.inAutoGain = idOf (Parameter::inAutoGain);
    ids.outAutoGain = idOf (Parameter::outAutoGain);
    ids.inGain1 = idOf (Parameter::inGain1);
    ids.inGain2 = idOf (Parameter::inGain2);
    ids.outGain1 = idOf (Parameter::outGain1);
    ids.outGain2 = idOf (Parameter::outGain2);
    return ids;
}

} // namespace kestreleq
