#include "ui_pro/controls/presets/PresetButton.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{

PresetButton::PresetButton (Look lookToUse, const juce::String& title, const juce::String& textToShow)
    : FaceButton (title, style::Theme::palette().accent),
      kind (lookToUse)
{
    setTitle (title);
    setButtonText (textToShow);

    if (kind >= Look::button)
        setTriggeredOnMouseDown (true);
    else
        setTooltip (title);

    if (kind == Look::tab)
    {
        setRole (juce::AccessibilityRole::radioButton);
        setToggleable (true);
    }
    else if (kind == Look::display || kind == Look::chooser)
    {
        setRole (juce::AccessibilityRole::comboBox);
        setOpen (false);
    }
}

juce::Path PresetButton::shape() const
{
    // The strip's arrows close its ends, so that both and the display read as one control.
    const auto r = getLocalBounds().toFloat().reduced (0.5f);
    const auto radius = style::Theme::get().presetBrowser.controlRadius;
    const auto left = kind != Look::next;
    const auto right = kind != Look::previous;
    juce::Path path;
    path.addRoundedRectangle (
        r.getX(), r.getY(), r.getWidth(), r.getHeight(), radius, radius, left, right, left, right);
    return path;
}

void PresetButton::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    if (getWidth() < 2 || getHeight() < 2)
        return;

    const auto& tokens = style::Theme::get().presetBrowser;
    const auto isDisplay = kind == Look::display;
    const presets::PartState state { look.enabled, look.hovered, look.pressed || (isOpen() && ! isDisplay),
        look.on || (isOpen() && isDisplay) };
    g.setFont (style::boldFont (tokens.bodyText));

    if (isDisplay)
        paintDisplay (g, state);
    else if (kind == Look::primary)
        paintPrimary (g, state);
    else if (kind == Look::tab)
        paintTab (g, state);
    else
        paintPlain (g, state);

    if (look.focused)
        presets::drawFocusRing (g, getLocalBounds().toFloat(), isDisplay ? 1.0f : tokens.controlRadius);
}

void PresetButton::paintPlain (juce::Graphics& g, const presets::PartState& state) const
{
    const auto& tokens = style::Theme::get().presetBrowser;
    const auto area = getLocalBounds();
    presets::drawFace (g, shape(), state);
    g.setColour (presets::textColour (state));

    if (kind == Look::previous || kind == Look::next)
    {
        presets::drawChevron (g, area.toFloat().getCentre(), 11.0f, kind == Look::next ? 0 : 2);
    }
    else if (kind == Look::chooser)
    {
        g.setFont (style::regularFont (tokens.bodyText));
        presets::drawText (
            g, getButtonText(), area.withTrimmedLeft (10).withTrimmedRight (22), juce::Justification::centredLeft);
        presets::drawChevron (g, { static_cast<float> (area.getRight() - 13), area.toFloat().getCentreY() }, 8.0f,
            state.isPressed ? 3 : 1);
    }
    else
    {
        constexpr int narrow = 50;

        if (getWidth() < narrow)
            g.setFont (style::boldFont (tokens.labelText));

        presets::drawText (g, getButtonText(), area.reduced (2, 0), juce::Justification::centred, 0.8f);
    }
}

void PresetButton::paintDisplay (juce::Graphics& g, const presets::PartState& state) const
{
    constexpr int inset = 10;
    constexpr int chevronWidth = 22;
    const auto& palette = style::Theme::palette();
    const auto isLit = state.isEnabled && (state.isHovered || state.isPressed);
    auto area = getLocalBounds();

    presets::drawWell (g, area.toFloat(), 0.0f);

    if (isLit)
        g.fillAll (palette.whiteWash);

    g.setColour (state.isActive ? palette.accent : (isLit ? palette.textMuted : palette.outlineStrong));
    g.drawRect (area, 1);

    area.removeFromLeft (inset);
    const auto chevron = area.removeFromRight (chevronWidth).toFloat();
    g.setColour (presets::textColour (state));
    presets::drawText (g, getButtonText(), area, juce::Justification::centredLeft, 0.9f);

    g.setColour (state.isEnabled ? palette.textSecondary : palette.textMuted);
    presets::drawChevron (g, chevron.getCentre(), 8.0f, isOpen() ? 3 : 1);
}

void PresetButton::paintPrimary (juce::Graphics& g, const presets::PartState& state) const
{
    const auto& palette = style::Theme::palette();

    if (! state.isEnabled)
    {
        presets::drawFace (g, shape(), state);
        g.setColour (presets::textColour (state));
    }
    else
    {
        g.setColour (state.isPressed ? palette.accent.darker (0.2f)
                                     : (state.isHovered ? palette.accent.brighter (0.25f) : palette.accent));
        g.fillPath (shape());
        g.setColour (palette.surface3);
    }

    presets::drawText (g, getButtonText(), getLocalBounds().reduced (2, 0), juce::Justification::centred);
}

void PresetButton::paintTab (juce::Graphics& g, const presets::PartState& state) const
{
    const auto& tokens = style::Theme::get().presetBrowser;
    presets::drawLine (g, getLocalBounds().toFloat(), { state.isEnabled, state.isHovered, false, state.isActive });

    g.setColour (presets::textColour (state));
    g.setFont (state.isActive ? style::boldFont (tokens.bodyText) : style::regularFont (tokens.bodyText));
    presets::drawText (g, getButtonText(), getLocalBounds().withTrimmedLeft (12).withTrimmedRight (8),
        juce::Justification::centredLeft);
}

} // namespace quillon::ui_pro::controls
