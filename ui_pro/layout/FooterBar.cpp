#include "ui_pro/layout/FooterBar.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::layout
{

FooterBar::FooterBar()
{
    setInterceptsMouseClicks (false, true);
}

void FooterBar::paint (juce::Graphics& g)
{
    layer.draw (g, *this,
        [this] (juce::Graphics& picture)
        {
            const auto& palette = style::Theme::palette();
            const auto r = getLocalBounds().toFloat();
            constexpr auto cornerRadius = 5.0f;
            primitives::fillPanel (picture, r, palette.surface1, cornerRadius);
            primitives::drawInnerShadow (picture, r, cornerRadius, 0.2f);
            picture.setColour (palette.outline);
            picture.drawRoundedRectangle (r.reduced (0.5f), cornerRadius, 1.0f);
        });
}

} // namespace quillon::ui_pro::layout
