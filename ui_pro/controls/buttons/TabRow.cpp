#include "ui_pro/controls/buttons/TabRow.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int tabPadding = 16; // beside a caption
constexpr float tabTextSize = 12.0f;

} // namespace

class TabRow::Tab final : public juce::Button
{
public:
    explicit Tab (const juce::String& caption)
        : juce::Button (caption)
    {
        setClickingTogglesState (true);
        setRadioGroupId (1);
        setWantsKeyboardFocus (false);
        setMouseClickGrabsKeyboardFocus (false);
    }

    int getPreferredWidth() const
    {
        return juce::GlyphArrangement::getStringWidthInt (style::boldFont (tabTextSize), getButtonText()) +
            2 * tabPadding;
    }

    void paintButton (juce::Graphics& g, bool isHighlighted, bool) override
    {
        const auto& palette = style::Theme::palette();
        const auto on = getToggleState();

        if (isHighlighted && ! on)
        {
            g.setColour (palette.whiteWash);
            g.fillRoundedRectangle (getLocalBounds().toFloat().withTrimmedBottom (3.0f), 4.0f);
        }

        g.setColour (on || isHighlighted ? palette.textPrimary : palette.textSecondary);
        g.setFont (on ? style::boldFont (tabTextSize) : style::regularFont (tabTextSize));
        g.drawText (getButtonText(), getLocalBounds().withTrimmedBottom (2), juce::Justification::centred, false);

        if (on)
        {
            g.setColour (palette.accent);
            g.fillRect (getLocalBounds().removeFromBottom (2));
        }
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
