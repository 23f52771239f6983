#include "engine/SharedTick.h"

#include <algorithm>
#include <mutex>
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
            const SharedTick* tick = nullptr;
            std::unique_lock<std::recursive_mutex> call;

            { // not held during the call, which may wait for a thread that makes or drops a tick
                const juce::ScopedLock scope (lock);

                if (i >= ticks.size())
                    return;

                tick = ticks[i];
                call = std::unique_lock (tick->calling);
            }

            tick->function();
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
    const std::scoped_lock untilCallHasEnded (calling);
}

} // namespace kestreleq
