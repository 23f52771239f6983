#include "ui_pro/primitives/KeyboardLoan.h"

#include <algorithm>
#include <vector>

namespace quillon::ui_pro::primitives
{
namespace
{

/** The loans of all windows, the latest one last. Message thread. */
std::vector<KeyboardLoan*>& openLoans()
{
    static std::vector<KeyboardLoan*> loans;
    return loans;
}

} // namespace

void KeyboardLoan::take (juce::Component& popup, juce::Component& first)
{
    end();
    owner = juce::Component::getCurrentlyFocusedComponent();
    borrower = &popup;
    target = &first;
    openLoans().push_back (this);
    juce::Desktop::getInstance().addFocusChangeListener (this);

    if (first.isShowing())
        first.grabKeyboardFocus();
}

void KeyboardLoan::giveBack (juce::Component& popup)
{
    end();

    if (! popup.hasKeyboardFocus (true))
        return;

    if (owner != nullptr && owner->isShowing())
        owner->grabKeyboardFocus();
    else
        popup.giveAwayKeyboardFocus();
}

void KeyboardLoan::end()
{
    if (std::erase (openLoans(), this) > 0)
        juce::Desktop::getInstance().removeFocusChangeListener (this);
}

void KeyboardLoan::globalFocusChanged (juce::Component* focused)
{
    if (focused == nullptr || borrower == nullptr || target == nullptr || ! target->isShowing() ||
        borrower == focused || borrower->isParentOf (focused))
        return;

    const auto isHere = [this] (const juce::Component* other)
    { return other != nullptr && other->getTopLevelComponent() == borrower->getTopLevelComponent(); };
    const auto& loans = openLoans();
    const auto later = std::find (loans.begin(), loans.end(), this) + 1;

    if (isHere (focused) &&
        std::none_of (later, loans.end(), [&] (const auto* loan) { return isHere (loan->borrower.getComponent()); }))
        target->grabKeyboardFocus();
}

} // namespace quillon::ui_pro::primitives
