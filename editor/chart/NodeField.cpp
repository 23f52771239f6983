#include "editor/chart/NodeField.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr int longestText = 16;

} // namespace

NodeField::NodeField()
{
    const auto& palette = style::Theme::palette();
    setVisible (false);
    setTitle ("Value");
    setInputRestrictions (longestText);
    setSelectAllWhenFocused (true);
    setPopupMenuEnabled (false);
    setJustification (juce::Justification::centred);
    setColour (backgroundColourId, palette.surface2);
    setColour (textColourId, palette.textPrimary);
    setColour (highlightColourId, palette.accentWash);
    setColour (highlightedTextColourId, palette.textPrimary);
    setColour (juce::CaretComponent::caretColourId, palette.accent);

    onReturnKey = [this] { take(); };
    onEscapeKey = [this] { close(); };
    onFocusLost = [this] { close(); };
    onTextChange = [this] { setRefused (false); };
}

void NodeField::open (juce::Rectangle<int> bounds, float textSize, const juce::String& text,
    std::function<bool (const juce::String&)> accept)
{
    acceptText = std::move (accept);
    setRefused (false);
    setBounds (bounds);
    applyFontToAllText (style::regularFont (textSize));
    setText (text, false);
    setVisible (true);
    toFront (false);
    selectAll();

    if (isShowing())
        grabKeyboardFocus();
}

void NodeField::close()
{
    if (isVisible())
        setVisible (false); // the keyboard goes back to the chart
}

void NodeField::take()
{
    if (acceptText != nullptr && acceptText (getText()))
        close();
    else
        setRefused (true);
}

void NodeField::setRefused (bool shouldBeRefused)
{
    const auto& palette = style::Theme::palette();
    refused = shouldBeRefused;
    setColour (outlineColourId, refused ? palette.red : palette.outlineStrong);
    setColour (focusedOutlineColourId, refused ? palette.red : palette.accent);

    if (refused)
        selectAll();
}

} // namespace kestreleq
