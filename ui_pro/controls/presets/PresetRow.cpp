#include "ui_pro/controls/presets/PresetRow.h"

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <array>

namespace quillon::ui_pro::controls
{
namespace
{

class RowHandler final : public juce::AccessibilityHandler
{
public:
    explicit RowHandler (PresetRow& source)
        : juce::AccessibilityHandler (source, juce::AccessibilityRole::listItem,
              juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press,
                  [&source]
                  {
                      if (source.onPick != nullptr)
                          source.onPick (source.getContent().id);
                  })),
          row (source)
    {
    }

    juce::AccessibleState getCurrentState() const override
    {
        const auto state = juce::AccessibilityHandler::getCurrentState().withSelectable();
        return row.getContent().isSelected ? state.withSelected() : state;
    }

private:
    PresetRow& row;
};

} // namespace

PresetRow::PresetRow()
{
    setInterceptsMouseClicks (false, false);
}

void PresetRow::show (const Content& newContent)
{
    if (content == newContent)
        return;

    content = newContent;
    setTitle (content.name);
    setDescription (
        content.category + ", " + content.author + ", " + content.mode + (content.isInForce ? ", Loaded" : ""));
    repaint();
}

void PresetRow::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();
    const auto& tokens = style::Theme::get().presetBrowser;
    auto area = getLocalBounds();

    g.setColour (palette.outline.withMultipliedAlpha (0.6f));
    g.fillRect (area.removeFromBottom (1));
    presets::drawLine (g, area.reduced (1, 0).toFloat(), { true, content.isHovered, false, content.isSelected });

    if (content.isInForce)
        presets::drawTick (g, { 36.0f, area.toFloat().getCentreY() });

    const std::array<juce::String, 4> texts { content.name, content.category, content.author, content.mode };

    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        const auto column = presets::columns[i].header;
        g.setColour (i == 0 || content.isSelected ? palette.textPrimary : palette.textSecondary);
        g.setFont (i == 0 ? style::boldFont (tokens.bodyText) : style::regularFont (tokens.bodyText));
        presets::drawText (g, texts[i],
            area.withX (column.getX() - presets::table.getX()).withWidth (column.getWidth() - 6),
            juce::Justification::centredLeft);
    }
}

std::unique_ptr<juce::AccessibilityHandler> PresetRow::createAccessibilityHandler()
{
    return std::make_unique<RowHandler> (*this);
}

} // namespace quillon::ui_pro::controls
