#pragma once

#include <juce_events/juce_events.h>

#include <memory>

// The framework's loops either end for good after one stop or are compiled out with its modal loops. This is the step
// that they all are made of; it has no declaration in a public header.
namespace juce::detail
{
bool dispatchNextMessageOnSystemQueue (bool returnIfNoPendingMessages);
} // namespace juce::detail

namespace kestreleq::test
{

/** Delivers messages, timer callbacks and window events until the condition holds or the time is over; returns whether
    it holds. Message thread; any number of times, also from inside a delivered message. */
template <typename Condition>
bool pumpMessagesUntil (Condition&& condition, int milliseconds)
{
    jassert (juce::MessageManager::existsAndIsCurrentThread());
    const auto end = juce::Time::getMillisecondCounterHiRes() + milliseconds;

    while (! condition())
    {
        if (juce::Time::getMillisecondCounterHiRes() >= end)
            return false;

        if (! juce::detail::dispatchNextMessageOnSystemQueue (true))
            juce::Thread::sleep (1);
    }

    return true;
}

/** Delivers messages for a fixed time, and at any rate what is waiting now, however late this thread gets its turn; 0
    delivers nothing. */
inline void pumpMessages (int milliseconds)
{
    if (milliseconds < 1)
        return;

    const auto reached = std::make_shared<bool> (false);
    juce::MessageManager::callAsync ([reached] { *reached = true; });
    pumpMessagesUntil ([] { return false; }, milliseconds);
    pumpMessagesUntil ([&] { return *reached; }, 10000);
}

} // namespace kestreleq::test
