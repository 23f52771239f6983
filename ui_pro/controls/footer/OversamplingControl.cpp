#include "ui_pro/controls/footer/OversamplingControl.h"

#include "ui_pro/controls/footer/OversamplingPopup.h"
#include "ui_pro/primitives/TextValueHandler.h"
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

/** The outermost component that is drawn at the control's own scale. */
juce::Component* findPopupParent (juce::Component& control)
{
    auto* parent = control.getParentComponent();

    while (parent != nullptr && ! parent->isTransformed() && parent->getParentComponent() != nullptr)
        parent = parent->getParentComponent();

    return parent;
}

} // namespace

/** Closes the popup on a press anywhere else. */
struct OversamplingControl::OutsideClicks final : juce::MouseListener
{
    explicit OutsideClicks (OversamplingControl& control)
        : owner (control)
    {
        juce::Desktop::getInstance().addGlobalMouseListener (this);
    }

    ~OutsideClicks() override { juce::Desktop::getInstance().removeGlobalMouseListener (this); }

    void mouseDown (const juce::MouseEvent& event) override
    {
        const auto* target = event.originalComponent;

        if (target != &owner && target != owner.popup.get() && ! owner.popup->isParentOf (target))
            owner.closePopup();
    }

    OversamplingControl& owner;
};

OversamplingControl::OversamplingControl()
    : FooterReadout ("OS:", getModeText (0), style::Theme::get().footer.oversampling)
{
    setTitle ("Oversampling");
    setMouseClickGrabsKeyboardFocus (false);
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

    if (isPopupOpen())
        popup->repaint();
}

bool OversamplingControl::canChoose (int newMode) const
{
    return onModeChange != nullptr && currentMode != nullptr &&
        (mayChangeModeTo == nullptr || mayChangeModeTo (newMode));
}

bool OversamplingControl::isPopupOpen() const
{
    return popup != nullptr && popup->getParentComponent() != nullptr;
}

void OversamplingControl::openPopup()
{
    auto* parent = findPopupParent (*this);

    if (parent == nullptr || isPopupOpen())
        return;

    if (popup == nullptr)
        popup = std::make_unique<Popup> (*this);

    popup->placeIn (*parent);
    outsideClicks = std::make_unique<OutsideClicks> (*this);
    keyboard.take (*popup);
    repaint();
}

void OversamplingControl::closePopup()
{
    if (! isPopupOpen())
        return;

    outsideClicks.reset();
    keyboard.giveBack (*popup);
    popup->getParentComponent()->removeChildComponent (popup.get());
    repaint();
}

void OversamplingControl::togglePopup()
{
    if (isPopupOpen())
        closePopup();
    else
        openPopup();
}

void OversamplingControl::rowClicked (int row)
{
    closePopup();
    const auto chosen = Popup::modeOfRow (row);

    if (canChoose (chosen) && chosen != currentMode())
        onModeChange (chosen);
}

juce::Rectangle<int> OversamplingControl::getTextArea() const
{
    return getLocalBounds().withTrimmedLeft (textInset).withTrimmedRight (arrowColumn + arrowInset);
}

void OversamplingControl::paint (juce::Graphics& g)
{
    const auto& palette = style::Theme::palette();
    const auto face = getLocalBounds().toFloat();
    const auto active = isPopupOpen() || pressed;

    if (active || isMouseOver())
    {
        g.setColour (juce::Colours::white.withAlpha (active ? 0.07f : 0.04f));
        g.fillRoundedRectangle (face, faceRadius);
    }

    g.setColour (isPopupOpen() ? palette.accent : isMouseOver() ? palette.outlineStrong : palette.outline);
    g.drawRoundedRectangle (face.reduced (0.5f), faceRadius - 0.5f, 1.0f);

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

void OversamplingControl::mouseEnter (const juce::MouseEvent&)
{
    repaint();
}

void OversamplingControl::mouseExit (const juce::MouseEvent&)
{
    repaint();
}

void OversamplingControl::mouseDown (const juce::MouseEvent&)
{
    pressed = true;
    repaint();
}

void OversamplingControl::mouseUp (const juce::MouseEvent& event)
{
    pressed = false;
    repaint();

    if (getLocalBounds().contains (event.getPosition()))
        togglePopup();
}

void OversamplingControl::visibilityChanged()
{
    if (! isVisible())
        closePopup();
}

std::unique_ptr<juce::AccessibilityHandler> OversamplingControl::createAccessibilityHandler()
{
    return primitives::makeTextValueHandler (
        *this, juce::AccessibilityRole::button, [this] { return getValueText(); },
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press, [this] { togglePopup(); }));
}

} // namespace quillon::ui_pro::controls
