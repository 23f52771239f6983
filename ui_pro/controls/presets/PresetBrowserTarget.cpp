#include "ui_pro/controls/presets/PresetBrowserTarget.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

using style::Theme;

juce::Path roundedShape (juce::Rectangle<float> r, float radius)
{
    juce::Path path;
    path.addRoundedRectangle (r, radius);
    return path;
}

juce::AccessibilityRole roleOf (PresetBrowserTarget::Look look)
{
    using enum PresetBrowserTarget::Look;
    using Role = juce::AccessibilityRole;

    switch (look)
    {
        case chooser:
            return Role::comboBox;
        case tab:
            return Role::radioButton;
        case menuItem:
            return Role::menuItem;
        case heading:
            return Role::staticText;
        case button:
        case primary:
            break;
    }
    return Role::button;
}

class TargetHandler final : public juce::AccessibilityHandler
{
public:
    TargetHandler (PresetBrowserTarget& source, juce::AccessibilityRole roleOfTarget, bool canBeChecked)
        : juce::AccessibilityHandler (source, roleOfTarget,
              juce::AccessibilityActions().addAction (
                  juce::AccessibilityActionType::press, [&source] { source.press(); })),
          target (source),
          isCheckable (canBeChecked)
    {
    }

    juce::AccessibleState getCurrentState() const override
    {
        const auto state = juce::AccessibilityHandler::getCurrentState();

        if (! isCheckable)
            return state;

        return target.isActive() ? state.withCheckable().withChecked() : state.withCheckable();
    }

private:
    PresetBrowserTarget& target;
    bool isCheckable;
};

} // namespace

PresetBrowserTarget::PresetBrowserTarget (Look lookToUse, const juce::String& textToShow, const juce::String& title)
    : look (lookToUse),
      text (textToShow)
{
    setTitle (title);
    setInterceptsMouseClicks (false, false);
    setWantsKeyboardFocus (look != Look::menuItem && look != Look::heading);
}

void PresetBrowserTarget::change (bool& flag, bool newValue)
{
    if (flag == newValue)
        return;

    flag = newValue;
    repaint();
}

void PresetBrowserTarget::setText (const juce::String& newText)
{
    if (text == newText)
        return;

    text = newText;
    setTitle (text);
    repaint();
}

void PresetBrowserTarget::setActive (bool shouldBeActive)
{
    change (state.isActive, shouldBeActive);
}

void PresetBrowserTarget::setHovered (bool shouldBeHovered)
{
    change (state.isHovered, shouldBeHovered);
}

void PresetBrowserTarget::setPressed (bool shouldBePressed)
{
    change (state.isPressed, shouldBePressed);
}

void PresetBrowserTarget::enablementChanged()
{
    change (state.isEnabled, isEnabled());
}

void PresetBrowserTarget::press()
{
    // A copy, because the press may close the browser.
    if (const auto action = onPress; isEnabled() && action != nullptr)
        action();
}

bool PresetBrowserTarget::keyPressed (const juce::KeyPress& key)
{
    if (key != juce::KeyPress::returnKey && key != juce::KeyPress::spaceKey)
        return false;

    press();
    return true;
}

void PresetBrowserTarget::focusGained (FocusChangeType)
{
    repaint();
}

void PresetBrowserTarget::focusLost (FocusChangeType)
{
    repaint();
}

void PresetBrowserTarget::paint (juce::Graphics& g)
{
    const auto& tokens = Theme::get().presetBrowser;
    const auto area = getLocalBounds();
    g.setFont (style::boldFont (tokens.bodyText));

    switch (look)
    {
        case Look::primary:
            paintPrimary (g);
            break;
        case Look::tab:
        case Look::menuItem:
        case Look::heading:
            paintLine (g);
            break;
        case Look::button:
        case Look::chooser:
            presets::drawFace (g, roundedShape (area.toFloat().reduced (0.5f), tokens.controlRadius), state);
            g.setColour (presets::textColour (state));

            if (look == Look::button)
            {
                constexpr int narrow = 60;
                g.setFont (style::boldFont (getWidth() < narrow ? tokens.labelText : tokens.bodyText));
                presets::drawText (g, text, area.reduced (2, 0), juce::Justification::centred, 0.8f);
                break;
            }

            g.setFont (style::regularFont (tokens.bodyText));
            presets::drawText (
                g, text, area.withTrimmedLeft (10).withTrimmedRight (22), juce::Justification::centredLeft);
            presets::drawChevron (g, { static_cast<float> (area.getRight() - 13), area.toFloat().getCentreY() }, 8.0f,
                state.isPressed ? 3 : 1);
            break;
    }

    if (hasKeyboardFocus (false))
        presets::drawFocusRing (g, area.toFloat(), tokens.controlRadius);
}

void PresetBrowserTarget::paintPrimary (juce::Graphics& g) const
{
    const auto& palette = Theme::palette();
    const auto shape =
        roundedShape (getLocalBounds().toFloat().reduced (0.5f), Theme::get().presetBrowser.controlRadius);

    if (! state.isEnabled)
    {
        presets::drawFace (g, shape, state);
        g.setColour (presets::textColour (state));
    }
    else
    {
        g.setColour (state.isPressed ? palette.accent.darker (0.2f)
                                     : (state.isHovered ? palette.accent.brighter (0.25f) : palette.accent));
        g.fillPath (shape);
        g.setColour (palette.surface3);
    }

    presets::drawText (g, text, getLocalBounds().reduced (2, 0), juce::Justification::centred);
}

void PresetBrowserTarget::paintLine (juce::Graphics& g) const
{
    const auto& tokens = Theme::get().presetBrowser;
    auto area = getLocalBounds();

    if (look == Look::heading)
    {
        g.setColour (Theme::palette().textSecondary);
        g.setFont (style::boldFont (tokens.labelText));
        presets::drawText (g, text, area.withTrimmedLeft (12), juce::Justification::centredLeft);
        return;
    }

    // A menu's highlight follows the mouse; its active item has a tick instead of the bar.
    auto line = state;
    line.isActive = look == Look::tab && state.isActive;
    line.isPressed = look == Look::menuItem && state.isHovered;
    presets::drawLine (g, area.toFloat(), line);

    g.setColour (presets::textColour (state));
    g.setFont (state.isActive ? style::boldFont (tokens.bodyText) : style::regularFont (tokens.bodyText));
    presets::drawText (g, text, area.withTrimmedLeft (12).withTrimmedRight (look == Look::menuItem ? 28 : 8),
        juce::Justification::centredLeft);

    if (look == Look::menuItem && state.isActive)
        presets::drawTick (g, area.removeFromRight (28).toFloat().getCentre());
}

std::unique_ptr<juce::AccessibilityHandler> PresetBrowserTarget::createAccessibilityHandler()
{
    return std::make_unique<TargetHandler> (*this, roleOf (look), look == Look::tab || look == Look::menuItem);
}

} // namespace quillon::ui_pro::controls
