#include "tools/kestrel-shot/gallery/GallerySheet.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;

constexpr int sheetWidth = 1672;
constexpr int margin = 32;
constexpr int gap = 24;
constexpr int titleHeight = 40;
constexpr int captionHeight = 20;

} // namespace

GallerySheet::GallerySheet()
    : corner (margin, margin)
{
    setSize (sheetWidth, 2 * margin);
}

GallerySheet::~GallerySheet() = default;

void GallerySheet::startRow()
{
    corner = { margin, corner.y + (rowHeight > 0 ? rowHeight + captionHeight + gap : 0) };
    rowHeight = 0;
}

void GallerySheet::addSection (const juce::String& title)
{
    startRow();
    captions.push_back ({ title, { corner.x, corner.y, sheetWidth - 2 * margin, titleHeight - gap / 2 }, true });
    corner.y += titleHeight;
}

void GallerySheet::place (const juce::String& caption, std::unique_ptr<juce::Component> component)
{
    const auto textWidth = juce::GlyphArrangement::getStringWidthInt (style::regularFont (11.0f), caption) + 4;
    const auto width = std::max (component->getWidth(), textWidth);

    if (rowHeight > 0 && corner.x + width > sheetWidth - margin)
        startRow();

    component->setTopLeftPosition (corner);
    captions.push_back (
        { caption, { corner.x, corner.y + component->getHeight() + 4, width, captionHeight - 4 }, false });
    rowHeight = std::max (rowHeight, component->getHeight());
    corner.x += width + gap;

    addAndMakeVisible (*component);
    components.push_back (std::move (component));
    setSize (sheetWidth, corner.y + rowHeight + captionHeight + margin);
}

void GallerySheet::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();
    g.fillAll (palette.backgroundTop);

    for (const auto& caption : captions)
    {
        g.setFont (caption.isTitle ? style::boldFont (16.0f) : style::regularFont (11.0f));
        g.setColour (caption.isTitle ? palette.textPrimary : palette.textSecondary);
        g.drawText (caption.text, caption.area, juce::Justification::topLeft, false);
    }
}

} // namespace kestreleq::shot
