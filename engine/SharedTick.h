#pragma once

#include <juce_events/juce_events.h>

#include <functional>
#include <mutex>

namespace kestreleq
{

/** Calls a function ten times a second on the message thread for as long as it lives. All ticks of the process come
   from one timer: two hundred instances with a timer each would wake two threads two thousand times a second.

    Made and dropped on any thread, but not dropped by its own function; dropping waits for a call that is under way. */
class SharedTick final
{
public:
    explicit SharedTick (std::function<void()> functionToCall);
    ~SharedTick();

    SharedTick (const SharedTick&) = delete;
    SharedTick& operator= (const SharedTick&) = delete;

private:
    class Source;

    const std::function<void()> function;
    mutable std::recursive_mutex calling; // held during a call
    const juce::SharedResourcePointer<Source> source;
};

} // namespace kestreleq
