#include "ui_pro/controls/footer/OversamplingPopup.h"

#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int rowHeight = 28;
constexpr int padding = 5;
constexpr int width = 140;
constexpr int gapToControl = 6;
constexpr float cornerRadius = 6.0f;
constexpr float rowRadius = 4.0f;
constexpr float textSize = 13.0f;
constexpr float modeDotSize = 6.0f;
constexpr float dotColumn = 24.0f;

} // namespace

/** Shows the current mode by a dot, and by dim text a mode that cannot be chosen. */
class OversamplingControl::Popup::Row final : public juce::Button
{
public:
    Row (OversamplingControl& control, int modeOfRow)
        : Button (OversamplingControl::getModeText (modeOfRow)),
          owner (control),
          mode (modeOfRow)
    {
        setWantsKeyboardFocus (false);
        setMouseClickGrabsKeyboardFocus (false);
    }

    void paintButton (juce::Graphics& g, bool highlighted, bool down) override
    {
        const auto& palette = style::Theme::palette();
        const auto isCurrent = owner.getMode() == mode;
        const auto canChoose = owner.canChoose (mode);
        auto area = getLocalBounds().toFloat();

        if (canChoose && (highlighted || down))
        {
            g.setColour (juce::Colours::white.withAlpha (down ? 0.12f : 0.07f));
            g.fillRoundedRectangle (area, rowRadius);
        }

        const auto dot = area.removeFromLeft (dotColumn).withSizeKeepingCentre (modeDotSize, modeDotSize);

        if (isCurrent)
        {
            g.setColour (palette.accent);
            g.fillEllipse (dot);
        }

        g.setColour (canChoose || isCurrent ? palette.textPrimary : palette.textMuted);
        g.setFont (isCurrent ? style::boldFont (textSize) : style::regularFont (textSize));
        g.drawFittedText (getName(), area.toNearestInt(), juce::Justification::centredLeft, 1, 0.7f);
    }

private:
    OversamplingControl& owner;
    int mode;
};

OversamplingControl::Popup::Popup (OversamplingControl& control)
    : owner (control)
{
    for (int i = 0; i < numModes; ++i)
    {
        auto& row = rows[static_cast<std::size_t> (i)];
        row = std::make_unique<Row> (control, modeOfRow (i));
        row->onClick = [this, i] { owner.rowClicked (i); };
        addAndMakeVisible (*row);
    }

    setTitle ("Oversampling modes");
    setWantsKeyboardFocus (true); // for the Escape key, as long as it is open
    setSize (width, numModes * rowHeight + 2 * padding);
}

OversamplingControl::Popup::~Popup() = default;

juce::Button& OversamplingControl::Popup::getRow (int row) const
{
    return *rows[static_cast<std::size_t> (row)];
}

void OversamplingControl::Popup::placeIn (juce::Component& parent)
{
    parent.addAndMakeVisible (*this);
    const auto control = parent.getLocalArea (&owner, owner.getLocalBounds());
    const auto above = control.getY() - gapToControl - getHeight();
    const auto y = above >= 0 ? above : control.getBottom() + gapToControl;
    setBounds (getLocalBounds().withPosition (control.getX(), y).constrainedWithin (parent.getLocalBounds()));
}

bool OversamplingControl::Popup::keyPressed (const juce::KeyPress& key)
{
    if (key != juce::KeyPress::escapeKey)
        return false;

    owner.closePopup();
    return true;
}

void OversamplingControl::Popup::resized()
{
    auto area = getLocalBounds().reduced (padding);

    for (auto& row : rows)
        row->setBounds (area.removeFromTop (rowHeight));
}

void OversamplingControl::Popup::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();
    const auto area = getLocalBounds().toFloat();
    g.setColour (palette.surface2);
    g.fillRoundedRectangle (area, cornerRadius);
    g.setColour (palette.outlineStrong);
    g.drawRoundedRectangle (area.reduced (0.5f), cornerRadius - 0.5f, 1.0f);
}

} // namespace quillon::ui_pro::controls
