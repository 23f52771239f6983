#include "ui_pro/controls/support/SupportSheet.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <algorithm>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int sheetMargin = 20;
constexpr int headerHeight = 62;
constexpr int tabHeight = 30;
constexpr int cardPadding = 8;
constexpr int largestRowHeight = 32;
constexpr int factLabelWidth = 112;
constexpr int gridColumns = 3;
constexpr int gridGap = 8;
constexpr int smallestButton = 32;
constexpr int largestButton = 40;

} // namespace

/** A label and its value, or a text over the whole width when there is no label. */
class SupportDiagnosticsPanel::Sheet::Row final : public primitives::TextComponent
{
public:
    Row (const juce::String& rowLabel, const juce::String& rowValue)
        : label (rowLabel),
          value (rowValue)
    {
        setInterceptsMouseClicks (false, false);
        setTitle (label.isEmpty() ? value : label + ": " + value);
    }

    void paint (juce::Graphics& g) override
    {
        const auto& palette = style::Theme::palette();
        auto area = getLocalBounds().reduced (8, 0);

        if (label.isEmpty())
        {
            g.setColour (palette.textBright);
            g.setFont (style::regularFont (14.0f));
            g.drawFittedText (value, area.withTrimmedTop (8), juce::Justification::topLeft, 4, 1.0f);
            return;
        }

        g.setColour (palette.textSecondary);
        g.setFont (style::regularFont (13.0f));
        g.drawText (label, area.removeFromLeft (factLabelWidth), juce::Justification::centredLeft, true);
        g.setColour (palette.textPrimary);
        g.drawFittedText (value, area, juce::Justification::centredLeft, 1, 0.8f);
    }

    bool isParagraph() const { return label.isEmpty(); }

private:
    const juce::String label;
    const juce::String value;
};

SupportDiagnosticsPanel::Sheet::Sheet (SupportDiagnosticsPanel& panel)
    : owner (panel),
      tabs ({ "ABOUT", "SYSTEM", "PRIVACY" })
{
    setMouseClickGrabsKeyboardFocus (false);
    tabs.onChange = [this] (int) { refreshRows(); };
    addAndMakeVisible (tabs);

    for (const auto& button : owner.buttons)
        addAndMakeVisible (*button);
}

SupportDiagnosticsPanel::Sheet::~Sheet() = default;

void SupportDiagnosticsPanel::Sheet::setTab (Tab tab)
{
    if (tab == getTab())
        return;

    tabs.setCurrent (static_cast<int> (tab));
    refreshRows();
}

void SupportDiagnosticsPanel::Sheet::addRow (const juce::String& label, const juce::String& value)
{
    addAndMakeVisible (*rows.emplace_back (std::make_unique<Row> (label, value)));
}

void SupportDiagnosticsPanel::Sheet::refreshRows()
{
    const auto& shown = owner.record;
    rows.clear();

    switch (getTab())
    {
        case Tab::about:
            addRow ("Plugin", shown.pluginName + "  v" + shown.version);
            addRow ("Format", shown.format);
            addRow ("Architecture", shown.architecture);
            addRow ("Type", shown.type);
            break;

        case Tab::system:
            addRow ("OS", shown.operatingSystem);
            addRow ("CPU", shown.cpu);
            addRow ("RAM", juce::String (shown.ramMegabytes) + " MB");
            addRow ("Host", hostText (shown));
            addRow ("Sample rate", sampleRateText (shown) + " Hz");
            addRow ("Buffer", juce::String (shown.bufferSize) + " samples");
            addRow ("Channels",
                shown.channelLayout + "  (in: " + juce::String (shown.inputChannels) +
                    ", out: " + juce::String (shown.outputChannels) + ")");
            break;

        case Tab::privacy:
            addRow ({}, "Diagnostics are built locally on demand. The plugin makes no automatic network requests.");
            break;
    }

    layOutRows();
}

void SupportDiagnosticsPanel::Sheet::layOutRows()
{
    constexpr int mostRows = 7;
    auto area = card.reduced (cardPadding, cardPadding);
    const auto height = std::clamp (area.getHeight() / mostRows, 1, largestRowHeight);

    for (const auto& row : rows)
        row->setBounds (row->isParagraph() ? area : area.removeFromTop (height));
}

void SupportDiagnosticsPanel::Sheet::resized()
{
    auto area = getLocalBounds().reduced (sheetMargin, 0).withTrimmedBottom (sheetMargin - 2);
    area.removeFromTop (headerHeight + 6);
    tabs.setBounds (area.removeFromTop (tabHeight));
    area.removeFromTop (8);

    const auto lines = (static_cast<int> (numActions) + gridColumns - 1) / gridColumns;
    const auto buttonHeight = std::clamp (getHeight() / 13, smallestButton, largestButton);
    auto grid = area.removeFromBottom (lines * buttonHeight + (lines - 1) * gridGap);
    area.removeFromBottom (12);
    card = area;
    layOutRows();

    const auto columnWidth = (grid.getWidth() - (gridColumns - 1) * gridGap) / gridColumns;
    int index = 0;

    for (const auto& button : owner.buttons)
    {
        button->setBounds (grid.getX() + index % gridColumns * (columnWidth + gridGap),
            grid.getY() + index / gridColumns * (buttonHeight + gridGap), columnWidth, buttonHeight);
        ++index;
    }
}

void SupportDiagnosticsPanel::Sheet::showMessage (const juce::String& text, bool isGood)
{
    message = text;
    isGoodMessage = isGood;
    surface.invalidate();
    repaint();
}

void SupportDiagnosticsPanel::Sheet::paint (juce::Graphics& g)
{
    surface.draw (g, *this, [this] (juce::Graphics& picture) { paintSurface (picture); });
}

void SupportDiagnosticsPanel::Sheet::paintSurface (juce::Graphics& g) const
{
    const auto& palette = style::Theme::palette();
    const auto bounds = getLocalBounds();

    g.setGradientFill (juce::ColourGradient::vertical (
        palette.surface2, 0.0f, palette.backgroundMid, static_cast<float> (bounds.getBottom())));
    g.fillRect (bounds);
    g.setColour (palette.outlineStrong);
    g.fillRect (bounds.withWidth (1));

    auto header = bounds.withHeight (headerHeight).reduced (sheetMargin, 0);
    g.setColour (palette.outline);
    g.fillRect (bounds.withTrimmedLeft (1).withY (headerHeight).withHeight (1));

    g.setColour (palette.accent);
    g.fillRoundedRectangle (header.removeFromLeft (3).withSizeKeepingCentre (3, 32).toFloat(), 1.5f);
    header.removeFromLeft (12);

    const juce::String status ("READY");
    const auto statusFont = style::boldFont (11.0f);
    const auto statusWidth = juce::GlyphArrangement::getStringWidthInt (statusFont, status) + 36;
    const auto badge = header.removeFromRight (statusWidth).withSizeKeepingCentre (statusWidth, 22).toFloat();
    g.setColour (style::Theme::get().surface.card);
    g.fillRoundedRectangle (badge.reduced (0.5f), 11.0f);
    g.setColour (palette.outlineStrong);
    g.drawRoundedRectangle (badge.reduced (0.5f), 11.0f, 1.0f);
    g.setColour (palette.green);
    g.fillEllipse (badge.withTrimmedLeft (11.0f).withWidth (7.0f).withSizeKeepingCentre (7.0f, 7.0f));
    g.setColour (palette.textBright);
    g.setFont (statusFont);
    g.drawText (status, badge.withTrimmedLeft (24.0f), juce::Justification::centredLeft, false);

    const auto middle = header.getCentreY() + 3;
    g.setColour (palette.textPrimary);
    g.setFont (style::boldFont (19.0f));
    g.drawText ("Support / Diagnostics", header.withBottom (middle), juce::Justification::bottomLeft, true);
    const auto subtitle = header.withTop (middle + 2);

    if (message.isEmpty())
    {
        g.setColour (palette.textSecondary);
        g.setFont (style::regularFont (11.0f));
        g.drawText ("SYSTEM SUMMARY & DIAGNOSTICS", subtitle, juce::Justification::topLeft, true);
    }
    else
    {
        g.setColour (isGoodMessage ? palette.green : palette.red.brighter (0.3f));
        g.setFont (style::regularFont (13.0f));
        g.drawFittedText (message, subtitle, juce::Justification::topLeft, 1, 0.7f);
    }

    primitives::fillPanel (g, card.toFloat(), style::Theme::get().surface.card, 6.0f);
    primitives::drawInnerShadow (g, card.toFloat(), 6.0f, 0.35f);
    g.setColour (palette.outline);
    g.drawRoundedRectangle (card.toFloat().reduced (0.5f), 6.0f, 1.0f);
}

} // namespace quillon::ui_pro::controls
