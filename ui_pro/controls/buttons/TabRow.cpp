#include "ui_pro/controls/buttons/TabRow.h"

#include "ui_pro/primitives/FaceButton.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int tabPadding = 16; // beside a caption
constexpr float tabTextSize = 12.0f;

} // namespace

class TabRow::Tab final : public primitives::FaceButton
{
public:
    explicit Tab (const juce::String& caption)
        : FaceButton (caption, style::Theme::palette().accent)
    {
        setTitle (caption);
        setButtonText (caption);
        setRole (juce::AccessibilityRole::radioButton);
        setClickingTogglesState (true);
        setRadioGroupId (1);
    }

    int getPreferredWidth() const
    {
        return juce::GlyphArrangement::getStringWidthInt (style::boldFont (tabTextSize), getButtonText()) +
            2 * tabPadding;
    }

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override
    {
        const auto& palette = style::Theme::palette();

        if (look.hovered && ! look.on)
        {
            g.setColour (palette.whiteWash);
            g.fillRoundedRectangle (getLocalBounds().toFloat().withTrimmedBottom (3.0f), 4.0f);
        }

        g.setColour (look.on || look.hovered ? palette.textPrimary : palette.textSecondary);
        g.setFont (look.on ? style::boldFont (tabTextSize) : style::regularFont (tabTextSize));
        g.drawText (getButtonText(), getLocalBounds().withTrimmedBottom (2), juce::Justification::centred, false);

        if (look.on)
        {
            g.setColour (getColour());
            g.fillRect (getLocalBounds().removeFromBottom (2));
        }

        if (look.focused)
            primitives::paintFocusRing (g, getLocalBounds().toFloat(), 4.0f);
    }
};

TabRow::TabRow (const juce::StringArray& captions)
{
    for (const auto& caption : captions)
    {
        auto& tab = *tabs.emplace_back (std::make_unique<Tab> (caption));
        tab.onClick = [this, index = static_cast<int> (tabs.size()) - 1]
        {
            // The one that loses the choice reports a click as well.
            if (! getTab (index).getToggleState() || index == current)
                return;

            current = index;

            if (hasKeyboardFocus (true)) // of a press with the mouse, which leaves the keyboard where it was
                getTab (index).grabKeyboardFocus();

            if (onChange != nullptr)
                onChange (index);
        };
        addAndMakeVisible (tab);
    }

    if (! tabs.empty())
        getTab (0).setToggleState (true, juce::dontSendNotification);
}

TabRow::~TabRow() = default;

juce::Button& TabRow::getTab (int index) const
{
    return *tabs.at (static_cast<std::size_t> (index));
}

void TabRow::setCurrent (int index)
{
    if (index < 0 || index >= static_cast<int> (tabs.size()) || index == current)
        return;

    current = index;
    getTab (index).setToggleState (true, juce::dontSendNotification);
}

void TabRow::paint (juce::Graphics& g)
{
    g.setColour (style::Theme::palette().outlineStrong);
    g.fillRect (getLocalBounds().removeFromBottom (1));
}

void TabRow::resized()
{
    auto area = getLocalBounds();

    for (const auto& tab : tabs)
        tab->setBounds (area.removeFromLeft (tab->getPreferredWidth()));
}

} // namespace quillon::ui_pro::controls
