#pragma once

#include <juce_core/juce_core.h>

#include <exception>
#include <utility>

namespace kestreleq
{

/** Runs what a host has asked for. What it throws ends here, because the host and this module need not have one
    runtime between them; false then. */
template <typename Action>
bool contain (Action&& action) noexcept
{
    try
    {
        std::forward<Action> (action)();
        return true;
    }
    catch (const std::exception& error)
    {
        juce::ignoreUnused (error);
        DBG ("contained: " << error.what());
    }
    catch (...)
    {
        DBG ("contained: an unknown exception");
    }

    return false;
}

} // namespace kestreleq
