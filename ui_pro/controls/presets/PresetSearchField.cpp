#include "ui_pro/controls/presets/PresetSearchField.h"

#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

using style::Theme;

constexpr int textLeft = 34; // right of the magnifier
constexpr int longestSearch = 64;

void drawMagnifier (juce::Graphics& g, juce::Point<float> centre)
{
    g.drawEllipse (juce::Rectangle<float> (10.0f, 10.0f).withCentre (centre.translated (-1.5f, -1.5f)), 1.75f);
    g.drawLine ({ centre.translated (2.2f, 2.2f), centre.translated (6.5f, 6.5f) }, 2.0f);
}

/** Whether the field has a use for a key when it holds the right text: then it is never the editor's or the host's. */
bool isEditingKey (const juce::KeyPress& key)
{
    const auto held = key.getModifiers();
    auto letter = juce::CharacterFunctions::toLowerCase (static_cast<juce::juce_wchar> (key.getKeyCode()));

    if (letter < ' ') // some hosts send a control character
        letter += 'a' - 1;

    if (held.isCommandDown() && ! held.isAltDown())
        return juce::String ("acvxyz").containsChar (letter);

    return key == juce::KeyPress::deleteKey || key == juce::KeyPress::backspaceKey || key == juce::KeyPress::leftKey ||
        key == juce::KeyPress::rightKey || key == juce::KeyPress::homeKey || key == juce::KeyPress::endKey;
}

} // namespace

PresetSearchField::PresetSearchField()
{
    const auto& palette = Theme::palette();
    setTitle ("Search presets");
    setFont (style::regularFont (Theme::get().presetBrowser.bodyText));
    setMultiLine (false);
    setJustification (juce::Justification::centredLeft);
    setBorder ({});
    setIndents (textLeft, 0);
    setInputRestrictions (longestSearch);
    setPopupMenuEnabled (false); // a menu would leave the window
    setSelectAllWhenFocused (true);

    for (const auto id : { backgroundColourId, outlineColourId, focusedOutlineColourId, shadowColourId })
        setColour (id, juce::Colours::transparentBlack);

    setColour (textColourId, palette.textPrimary);
    setColour (highlightColourId, palette.accent.withAlpha (0.45f));
    setColour (highlightedTextColourId, palette.textPrimary);
    setColour (juce::CaretComponent::caretColourId, palette.accent);

    onTextChange = [this] { reportEdit(); }; // edits that no key made, such as an input method's
}

void PresetSearchField::reportEdit()
{
    if (onEdit != nullptr)
        onEdit (getText());
}

bool PresetSearchField::keyPressed (const juce::KeyPress& key)
{
    if (onKey != nullptr && onKey (key))
        return true;

    const auto isUsed = juce::TextEditor::keyPressed (key);
    reportEdit();
    return isUsed || isEditingKey (key);
}

void PresetSearchField::focusGained (FocusChangeType cause)
{
    juce::TextEditor::focusGained (cause);
    repaint();
}

void PresetSearchField::focusLost (FocusChangeType cause)
{
    juce::TextEditor::focusLost (cause);
    repaint();
}

void PresetSearchField::paint (juce::Graphics& g)
{
    const auto& palette = Theme::palette();
    const auto radius = Theme::get().presetBrowser.controlRadius;
    const auto area = getLocalBounds().toFloat();
    presets::drawWell (g, area, radius);

    g.setColour (hasKeyboardFocus (true) ? palette.accent : palette.outlineStrong);
    g.drawRoundedRectangle (area.reduced (0.5f), radius, Theme::get().strokeWidth);

    g.setColour (palette.textSecondary);
    drawMagnifier (g, { 18.0f, area.getCentreY() });

    if (isEmpty())
    {
        g.setColour (palette.textSecondary.withMultipliedAlpha (0.75f));
        g.setFont (getFont());
        presets::drawText (
            g, "Search presets", getLocalBounds().withTrimmedLeft (textLeft), juce::Justification::centredLeft);
    }
}

} // namespace quillon::ui_pro::controls
