#include "ui_pro/layout/HeaderBar.h"

#include "ui_pro/layout/Logo.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::layout
{
namespace
{

const juce::Rectangle<int> logoSlot { 18, 12, 44, 44 };
constexpr int namesX = 74;
constexpr int dividerGap = 18;
constexpr int versionGap = 10;
constexpr float brandSize = 22.0f;
constexpr float brandTracking = 0.12f;
constexpr float productSize = 17.0f;
constexpr float versionSize = 13.0f;
constexpr float subtitleSize = 13.0f;

/** Draws a text from x on, cut where `limit` is, and returns where it ends. */
int drawFrom (juce::Graphics& g, int x, int limit, juce::Range<int> rows, const juce::Font& font, juce::Colour colour,
    const juce::String& text)
{
    const auto width = std::min (juce::GlyphArrangement::getStringWidthInt (font, text) + 1, std::max (limit - x, 0));
    g.setFont (font);
    g.setColour (colour);
    g.drawText (text, x, rows.getStart(), width, rows.getLength(), juce::Justification::centredLeft);
    return x + width;
}

} // namespace

HeaderBar::HeaderBar()
    : logo (makeLogo())
{
    setInterceptsMouseClicks (false, true);
    setTitle (maker);
}

HeaderBar::~HeaderBar() = default;

void HeaderBar::setProductName (const juce::String& newName)
{
    change (productName, newName);
    setTitle (maker + " " + productName);
}

void HeaderBar::setVersionText (const juce::String& newText)
{
    change (versionText, newText);
}

void HeaderBar::setPresetName (const juce::String& newName)
{
    change (presetName, newName);
}

void HeaderBar::setSubtitle (const juce::String& newSubtitle)
{
    change (subtitle, newSubtitle);
}

void HeaderBar::change (juce::String& field, const juce::String& newText)
{
    if (field == newText)
        return;

    field = newText;
    layer.invalidate();
    repaint();
}

void HeaderBar::place (juce::Component& child, juce::Rectangle<int> slot)
{
    const auto known =
        std::find_if (children.begin(), children.end(), [&] (const Placed& p) { return p.component == &child; });

    if (known != children.end())
        known->slot = slot;
    else
        children.push_back ({ &child, slot });

    addAndMakeVisible (child);
    child.setBounds (slot);
    layer.invalidate();
    repaint();
}

void HeaderBar::paint (juce::Graphics& g)
{
    layer.draw (g, *this, [this] (juce::Graphics& picture) { paintBar (picture); });
}

bool HeaderBar::isTaken (juce::Rectangle<int> slot) const
{
    return std::any_of (children.begin(), children.end(),
        [&] (const Placed& child) { return child.component != nullptr && child.slot.intersects (slot); });
}

void HeaderBar::paintBar (juce::Graphics& g) const
{
    const auto& theme = style::Theme::get();
    const auto& palette = theme.palette();
    const auto r = getLocalBounds();

    g.setGradientFill (
        juce::ColourGradient::vertical (palette.surface2, 0.0f, palette.surface1, static_cast<float> (r.getBottom())));
    g.fillRect (r);
    g.setColour (juce::Colours::white.withAlpha (0.04f));
    g.fillRect (r.withHeight (1));
    g.setColour (palette.outline);
    g.fillRect (r.withTop (r.getBottom() - 2).withHeight (1));
    g.setColour (juce::Colours::black);
    g.fillRect (r.withTop (r.getBottom() - 1));

    logo->drawWithin (g, logoSlot.toFloat(), juce::RectanglePlacement::centred, 1.0f);
    paintNames (g);

    if (! isTaken (theme.header.presetSelector))
    {
        const auto slot = theme.header.presetSelector.toFloat();
        primitives::fillPanel (g, slot, palette.surface3, 5.0f);
        g.setFont (style::boldFont (13.0f));
        g.setColour (palette.textSecondary);
        g.drawText (presetName, slot, juce::Justification::centred);
    }
}

void HeaderBar::paintNames (juce::Graphics& g) const
{
    const auto& theme = style::Theme::get();
    const auto& palette = theme.palette();
    const auto height = getHeight();
    const auto middle = height / 2;
    const auto limit = theme.header.spare.getX() - dividerGap;

    const auto brandFont = style::boldFont (brandSize).withExtraKerningFactor (brandTracking);
    auto x = drawFrom (g, namesX, limit, { 0, height }, brandFont, palette.textPrimary, brand) + dividerGap;

    g.setColour (palette.outlineStrong);
    g.fillRect (x, middle - 18, 1, 36);
    x += dividerGap;

    // Without a line below it, the name stands in the middle.
    const auto nameRows =
        subtitle.isEmpty() ? juce::Range<int> (0, height) : juce::Range<int> (middle - 22, middle + 2);
    const auto nameEnd =
        drawFrom (g, x, limit, nameRows, style::boldFont (productSize), palette.textBright, productName);
    drawFrom (g, nameEnd + versionGap, limit, nameRows + (nameRows.getLength() < height ? 1 : 0),
        style::regularFont (versionSize), palette.textSecondary, versionText);
    drawFrom (
        g, x, limit, { middle + 2, middle + 20 }, style::regularFont (subtitleSize), palette.textSecondary, subtitle);
}

} // namespace quillon::ui_pro::layout
