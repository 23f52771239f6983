#pragma once

#include "engine/dsp/EngineParameters.h"

namespace kestreleq::dsp
{

/** What sets two settings of the engine apart. */
enum class SettingsChange
{
    none,
    values,  // bands, air amounts, gains
    switches // and at least one of what can only be one way or the other, the air's index included
};

/** Compares settings by their effect: a mid/side that link overrules or another air step of the same index is no
    change. Any thread. */
SettingsChange changeBetween (const EngineParameters& before, const EngineParameters& after);

/** Whether the lanes carry mid and side. */
inline bool isMidSide (const EngineParameters& settings)
{
    return settings.midSide && ! settings.link;
}

} // namespace kestreleq::dsp
