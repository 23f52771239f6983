#include "ui/settings/ScopeListeners.h"

#include <utility>

namespace quillon::ui::settings
{

int ScopeListeners::add (std::function<void()> callback)
{
    if (callback == nullptr)
        return 0;

    listeners.push_back ({ nextId, std::move (callback) });
    return nextId++;
}

void ScopeListeners::remove (int id)
{
    std::erase_if (listeners, [id] (const Listener& listener) { return listener.id == id; });
}

void ScopeListeners::notify()
{
    constexpr int mostPasses = 11;

    if (notifying)
    {
        notifyAgain = true;
        return;
    }

    notifying = true;
    notifyAgain = true;

    for (int pass = 0; pass < mostPasses && std::exchange (notifyAgain, false); ++pass)
        for (const auto copies = listeners; const auto& listener : copies)
            listener.callback();

    notifying = false;
}

} // namespace quillon::ui::settings
