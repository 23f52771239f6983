#include "ui_pro/controls/presets/PresetSelectorButton.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

using style::Theme;

constexpr int displayInset = 10;
constexpr int chevronWidth = 22;

/** Reads the display's text out to a screen reader. */
class DisplayedText final : public juce::AccessibilityTextValueInterface
{
public:
    explicit DisplayedText (const juce::Button& source)
        : button (source)
    {
    }

    bool isReadOnly() const override { return true; }

    juce::String getCurrentValueAsString() const override { return button.getButtonText(); }

    void setValueAsString (const juce::String&) override {}

private:
    const juce::Button& button;
};

} // namespace

PresetSelectorButton::PresetSelectorButton (Kind kindOfButton, const juce::String& title)
    : juce::Button (title),
      kind (kindOfButton)
{
    setTitle (title);
    setTooltip (title);
    setButtonText ({});
    setWantsKeyboardFocus (kind == Kind::display);
    setMouseClickGrabsKeyboardFocus (false);
}

void PresetSelectorButton::setOpen (bool shouldBeOpen)
{
    if (isOpen == shouldBeOpen)
        return;

    isOpen = shouldBeOpen;
    repaint();
}

bool PresetSelectorButton::keyPressed (const juce::KeyPress& key)
{
    return onKey != nullptr && onKey (key);
}

void PresetSelectorButton::focusGained (FocusChangeType)
{
    repaint();
}

void PresetSelectorButton::focusLost (FocusChangeType)
{
    repaint();
}

juce::Path PresetSelectorButton::shape() const
{
    // The arrows close the strip's ends, so that both and the display read as one control.
    const auto r = getLocalBounds().toFloat().reduced (0.5f);
    const auto radius = Theme::get().presetBrowser.controlRadius;
    const auto left = kind == Kind::initialise || kind == Kind::previous;
    const auto right = kind == Kind::initialise || kind == Kind::next;
    juce::Path path;
    path.addRoundedRectangle (
        r.getX(), r.getY(), r.getWidth(), r.getHeight(), radius, radius, left, right, left, right);
    return path;
}

void PresetSelectorButton::paintButton (juce::Graphics& g, bool isHovered, bool isPressed)
{
    if (getWidth() < 2 || getHeight() < 2)
        return;

    const auto& tokens = Theme::get().presetBrowser;
    const presets::PartState state { isEnabled(), isHovered, isPressed, isOpen };

    if (kind == Kind::display)
    {
        paintDisplay (g, state);
    }
    else
    {
        presets::drawFace (g, shape(), state);
        g.setColour (presets::textColour (state));

        if (kind == Kind::initialise)
        {
            g.setFont (style::boldFont (tokens.bodyText));
            presets::drawText (g, "INIT", getLocalBounds().reduced (3), juce::Justification::centred, 0.8f);
        }
        else
        {
            presets::drawChevron (g, getLocalBounds().toFloat().getCentre(), 11.0f, kind == Kind::next ? 0 : 2);
        }
    }

    if (hasKeyboardFocus (false))
        presets::drawFocusRing (g, getLocalBounds().toFloat(), kind == Kind::display ? 1.0f : tokens.controlRadius);
}

void PresetSelectorButton::paintDisplay (juce::Graphics& g, const presets::PartState& state) const
{
    const auto& palette = Theme::palette();
    const auto isLit = state.isEnabled && (state.isHovered || state.isPressed);
    auto area = getLocalBounds();

    presets::drawWell (g, area.toFloat(), 0.0f);

    if (isLit)
        g.fillAll (palette.whiteWash);

    g.setColour (state.isActive ? palette.accent : (isLit ? palette.textMuted : palette.outlineStrong));
    g.drawRect (area, 1);

    area.removeFromLeft (displayInset);
    const auto chevron = area.removeFromRight (chevronWidth).toFloat();
    g.setColour (presets::textColour (state));
    g.setFont (style::boldFont (Theme::get().presetBrowser.bodyText));
    presets::drawText (g, getButtonText(), area, juce::Justification::centredLeft, 0.9f);

    g.setColour (state.isEnabled ? palette.textSecondary : palette.textMuted);
    presets::drawChevron (g, chevron.getCentre(), 8.0f, isOpen ? 3 : 1);
}

std::unique_ptr<juce::AccessibilityHandler> PresetSelectorButton::createAccessibilityHandler()
{
    const auto click = [this]
    {
        if (onClick != nullptr && isEnabled())
            onClick();
    };

    if (kind != Kind::display)
        return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::button,
            juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press, click));

    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::comboBox,
        juce::AccessibilityActions()
            .addAction (juce::AccessibilityActionType::press, click)
            .addAction (juce::AccessibilityActionType::showMenu, click),
        juce::AccessibilityHandler::Interfaces { std::make_unique<DisplayedText> (*this) });
}

} // namespace quillon::ui_pro::controls
