#include "engine/dsp/SettingsChange.h"

#include "engine/dsp/AirFilter.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace kestreleq::dsp
{
namespace
{

/** What is no number is always the same. */
bool isSame (float a, float b)
{
    return a == b || (std::isnan (a) && std::isnan (b));
}

bool differInSwitches (const LaneParameters& a, const LaneParameters& b)
{
    return a.bypass != b.bypass ||
        (! isSame (a.airStep, b.airStep) && airIndexFor (a.airStep) != airIndexFor (b.airStep));
}

bool differInValues (const LaneParameters& a, const LaneParameters& b)
{
    return ! std::equal (a.bands.begin(), a.bands.end(), b.bands.begin(), isSame) ||
        ! isSame (a.airAmount, b.airAmount) || ! isSame (a.inputGain, b.inputGain) ||
        ! isSame (a.outputGain, b.outputGain);
}

} // namespace

SettingsChange changeBetween (const EngineParameters& before, const EngineParameters& after)
{
    if (before.bypass != after.bypass || before.link != after.link || before.breakMode != after.breakMode ||
        isMidSide (before) != isMidSide (after) ||
        ! std::equal (before.lanes.begin(), before.lanes.end(), after.lanes.begin(), std::not_fn (differInSwitches)))
        return SettingsChange::switches;

    const bool sameValues = isSame (before.trim, after.trim) &&
        std::equal (before.lanes.begin(), before.lanes.end(), after.lanes.begin(), std::not_fn (differInValues));
    return sameValues ? SettingsChange::none : SettingsChange::values;
}

} // namespace kestreleq::dsp
