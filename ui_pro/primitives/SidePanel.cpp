#include "ui_pro/primitives/SidePanel.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::primitives
{
namespace
{

constexpr float cornerRadius = 5.0f;

} // namespace

SidePanel::SidePanel()
{
    setInterceptsMouseClicks (false, true);
}

void SidePanel::setDivider (int x, int top, int bottom)
{
    if (x == dividerX && top == dividerTop && bottom == dividerBottom)
        return;

    dividerX = x;
    dividerTop = top;
    dividerBottom = bottom;
    layer.invalidate();
    repaint();
}

void SidePanel::paint (juce::Graphics& g)
{
    layer.draw (g, *this, [this] (juce::Graphics& picture) { paintPanel (picture); });
}

void SidePanel::paintPanel (juce::Graphics& g) const
{
    const auto r = getLocalBounds().toFloat();
    fillPanel (g, r, style::Theme::get().surface.sidePanel, cornerRadius);
    drawSheen (g, r, cornerRadius, 0.04f, 0.012f);
    drawInnerShadow (g, r, cornerRadius, 0.2f);

    if (dividerX < 0 || dividerBottom <= dividerTop)
        return;

    const juce::Rectangle<int> line (dividerX, dividerTop, 1, dividerBottom - dividerTop);
    g.setColour (style::Theme::palette().textSecondary.withAlpha (0.3f));
    g.fillRect (line);
    g.setColour (juce::Colours::white.withAlpha (0.04f));
    g.fillRect (line.translated (1, 0));
}

} // namespace quillon::ui_pro::primitives
