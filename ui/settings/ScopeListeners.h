#pragma once

#include <functional>
#include <vector>

namespace quillon::ui::settings
{

/** Callbacks in order of adding, which may set off the next notification themselves. Message thread only. */
class ScopeListeners
{
public:
    /** Returns the new listener's id (1, 2, 3 ...), or 0 without adding when the callback is empty. */
    int add (std::function<void()> callback);

    /** Ignores 0 and unknown ids. */
    void remove (int id);

    /** Calls every listener. A call from inside a callback starts no second round within the first, but has it repeated
        when it is over; a listener that asks for this without end is heard in eleven passes. Each pass goes through the
        listeners of its beginning: what a callback adds or removes counts from the next pass on. */
    void notify();

private:
    struct Listener
    {
        int id;
        std::function<void()> callback;
    };

    std::vector<Listener> listeners;
    int nextId = 1;
    bool notifying = false;
    bool notifyAgain = false;
};

} // namespace quillon::ui::settings
