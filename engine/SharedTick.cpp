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
        const juce::ScopedLock scope (lock);

        for (std::size_t i = 0; i < ticks.size(); ++i) // a call may drop ticks
            ticks[i]->function();
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
}

} // namespace kestreleq
