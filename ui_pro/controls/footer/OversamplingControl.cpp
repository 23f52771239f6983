#include "ui_pro/controls/footer/OversamplingControl.h"

#include "ui_pro/style/Theme.h"

#include <array>

namespace quillon::ui_pro::controls
{
namespace
{

struct Mode
{
    const char* name;
    int factor;
};

constexpr std::array<Mode, OversamplingControl::numModes> modes { {
    { "Live", 1 },
    { "Design", 2 },
    { "Mix", 4 },
    { "Master", 8 },
} };

constexpr float faceRadius = 5.0f;
constexpr int textInset = 8;
constexpr int arrowColumn = 14;
constexpr int arrowInset = 3;

} // namespace

/** The whole control as something to click. */
class OversamplingControl::Face final : public primitives::FaceButton
{
public:
    explicit Face (OversamplingControl& control)
        : FaceButton (control.getTitle(), style::Theme::palette().accent),
          owner (control)
    {
        setTitle (owner.getTitle());
        setRole (juce::AccessibilityRole::comboBox);
        setOpen (false);
        valueText = [this] { return owner.getValueText(); };
    }

    void clicked() override { owner.openPopup(); }

    juce::String getTooltip() override { return owner.getTooltip(); }

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override { owner.paintFace (g, look); }

private:
    OversamplingControl& owner;
};

OversamplingControl::OversamplingControl()
    : FooterReadout ("OS:", getModeText (0), style::Theme::get().footer.oversampling),
      list (*this, style::Theme::get().modes)
{
    setTitle ("Oversampling");
    setMouseClickGrabsKeyboardFocus (false);
    face = std::make_unique<Face> (*this);
    face->setBounds (getLocalBounds());
    addAndMakeVisible (*face);
    list.onOpenChanged = [this] { face->setOpen (list.isOpen()); };
}

OversamplingControl::~OversamplingControl() = default;

juce::String OversamplingControl::getModeText (int mode)
{
    if (mode < 0 || mode >= numModes)
        return "-";

    const auto& entry = modes[static_cast<std::size_t> (mode)];
    return juce::String (entry.name) + " (" + juce::String (entry.factor) + "x)";
}

void OversamplingControl::setMode (int newMode)
{
    if (mode == newMode)
        return;

    mode = newMode;
    showText (getModeText (mode));

    list.setItems (makeRows());
}

bool OversamplingControl::canChoose (int newMode) const
{
    return onModeChange != nullptr && currentMode != nullptr &&
        (mayChangeModeTo == nullptr || mayChangeModeTo (newMode));
}

std::vector<primitives::ListItem> OversamplingControl::makeRows()
{
    std::vector<primitives::ListItem> rows;

    for (int i = numModes - 1; i >= 0; --i) // the highest on top
    {
        auto& row = rows.emplace_back();
        row.text = getModeText (i);
        row.choose = [this, i] { choose (i); };
        row.isTicked = i == mode;
        row.isDim = ! canChoose (i);
    }

    return rows;
}

void OversamplingControl::choose (int newMode)
{
    if (canChoose (newMode) && newMode != currentMode())
        onModeChange (newMode);
}

juce::Rectangle<int> OversamplingControl::getTextArea() const
{
    return getLocalBounds().withTrimmedLeft (textInset).withTrimmedRight (arrowColumn + arrowInset);
}

void OversamplingControl::resized()
{
    face->setBounds (getLocalBounds());
}

std::unique_ptr<juce::AccessibilityHandler> OversamplingControl::createAccessibilityHandler()
{
    return createIgnoredAccessibilityHandler (*this); // the button speaks
}

void OversamplingControl::paintFace (juce::Graphics& g, const primitives::ButtonLook& look)
{
    const auto& palette = style::Theme::palette();
    const auto area = getLocalBounds().toFloat();
    const auto active = list.isOpen() || look.pressed;

    if (active || look.hovered)
    {
        g.setColour (juce::Colours::white.withAlpha (active ? 0.07f : 0.04f));
        g.fillRoundedRectangle (area, faceRadius);
    }

    g.setColour (list.isOpen() ? palette.accent : look.hovered ? palette.outlineStrong : palette.outline);
    g.drawRoundedRectangle (area.reduced (0.5f), faceRadius - 0.5f, 1.0f);

    if (look.focused)
        primitives::paintFocusRing (g, area, faceRadius);

    FooterReadout::paint (g);

    // An arrow towards where the popup stands.
    const auto column = getLocalBounds().withTrimmedRight (arrowInset).removeFromRight (arrowColumn).toFloat();
    const auto arrow = column.withSizeKeepingCentre (7.0f, 4.0f);
    juce::Path path;
    path.startNewSubPath (arrow.getBottomLeft());
    path.lineTo (arrow.getCentreX(), arrow.getY());
    path.lineTo (arrow.getBottomRight());
    g.setColour (palette.textSecondary);
    g.strokePath (path, juce::PathStrokeType (1.5f));
}

} // namespace quillon::ui_pro::controls
