#include "ui_pro/controls/panels/LaneModeSelector.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int padding = 8;
constexpr int chevronWidth = 8;

} // namespace

LaneModeSelector::LaneModeSelector (juce::Colour accentColour)
    : FaceButton ("Channel mode", accentColour),
      list (*this, style::Theme::get().choices)
{
    setTitle ("Channel mode");
    setRole (juce::AccessibilityRole::comboBox);
    setOpen (false);
    valueText = [this] { return getButtonText(); };
    list.onOpenChanged = [this] { setOpen (list.isOpen()); };
    setMode (LaneMode::stereo);
}

void LaneModeSelector::setMode (LaneMode newMode)
{
    mode = newMode;
    setButtonText (laneModeTexts[static_cast<std::size_t> (mode)]); // repaints when it differs
}

void LaneModeSelector::choose (LaneMode chosen)
{
    if (chosen == mode)
        return;

    const juce::WeakReference<juce::Component> self (this);
    juce::NullCheckedInvocation::invoke (onGestureStart);
    setMode (chosen);
    juce::NullCheckedInvocation::invoke (onChoice, chosen);

    if (self != nullptr)
        juce::NullCheckedInvocation::invoke (onGestureEnd);
}

void LaneModeSelector::clicked()
{
    std::vector<primitives::ListItem> rows;

    for (std::size_t i = 0; i < laneModeTexts.size(); ++i)
    {
        const auto offered = static_cast<LaneMode> (i);
        auto& row = rows.emplace_back();
        row.text = laneModeTexts[i];
        row.choose = [this, offered] { choose (offered); };
        row.isTicked = offered == mode;
    }

    list.open (std::move (rows));
}

void LaneModeSelector::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    paintButtonPlate (g, getLocalBounds().toFloat(), getColour(), look);

    auto area = getLocalBounds().reduced (padding, 0);
    const auto chevronArea = area.removeFromRight (chevronWidth).toFloat().withSizeKeepingCentre (8.0f, 4.0f);
    juce::Path chevron;
    chevron.startNewSubPath (chevronArea.getTopLeft());
    chevron.lineTo (chevronArea.getCentreX(), chevronArea.getBottom());
    chevron.lineTo (chevronArea.getTopRight());

    g.setColour (plateTextColour (getColour(), look));
    g.strokePath (chevron, juce::PathStrokeType (1.5f));
    g.setFont (style::boldFont (12.0f));
    g.drawFittedText (getButtonText(), area, juce::Justification::centredLeft, 1, 0.85f);
}

void LaneModeSelector::internalClickCallback (const juce::ModifierKeys& modifiers)
{
    juce::Button::internalClickCallback (modifiers); // opens the list; the gesture is the choice from it
}

} // namespace quillon::ui_pro::controls
