#include "engine/SharedTick.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kestreleq
{

class SharedTick::Source final : private juce::Timer
{
public:
    void add (const SharedTick& tick)
    {
        const juce::ScopedLock scope (lock);
        ticks.push_back (&tick);

        if (ticks.size() == 1)
            startTimerHz (10);
    }

    void remove (const SharedTick& tick)
    {
        const juce::ScopedLock scope (lock);
        ticks.erase (std::find (ticks.begin(), ticks.end(), &tick));

        if (ticks.empty())
            stopTimer();
    }

private:
    void timerCallback() override
    {
        const juce::SharedResourcePointer<Source> untilReturn; // another thread may drop the last tick

        for (std::size_t i = 0;; ++i) // the list may change meanwhile
        {
            const juce::ScopedLock scope (lock);

            if (i >= ticks.size())
                return;

            const auto& tick = *ticks[i];
            const juce::ScopedLock call (tick.calling);
            const juce::ScopedUnlock others (lock); // what is called may wait for a thread that makes or drops a tick
            tick.function();
        }
    }

    juce::CriticalSection lock;
    std::vector<const SharedTick*> ticks;
};

SharedTick::SharedTick (std::function<void()> functionToCall)
    : function (std::move (functionToCall))
{
    source->add (*this);
}

SharedTick::~SharedTick()
{
    source->remove (*this);
    const juce::ScopedLock untilCallHasEnded (calling);
}

} // namespace kestreleq
