#pragma once

#include "ui_pro/controls/footer/FooterReadout.h"
#include "ui_pro/primitives/KeyboardLoan.h"

#include <functional>
#include <memory>

namespace quillon::ui_pro::controls
{

/** The footer's oversampling mode, with a popup that offers the others: 0 Live, 1 Design, 2 Mix, 3 Master. Without the
    owner's two hooks the popup only shows them. */
class OversamplingControl final : public FooterReadout
{
public:
    class Popup;

    static constexpr int numModes = 4;

    OversamplingControl();
    ~OversamplingControl() override;

    void setMode (int newMode);

    int getMode() const { return mode; }

    /** The name and the factor of a mode; "-" for an unknown one. */
    static juce::String getModeText (int mode);

    std::function<void (int)> onModeChange;    // the user has chosen this mode, which is not the current one
    std::function<int()> currentMode;          // the mode of what the control stands for; without it no mode changes
    std::function<bool (int)> mayChangeModeTo; // optional: the owner's permission

    /** Whether a choice of this mode would have an effect or be the current one. */
    bool canChoose (int newMode) const;

    bool isPopupOpen() const;
    void openPopup();
    void closePopup();

    /** Null until it was opened for the first time. */
    Popup* getPopup() const { return popup.get(); }

    void paint (juce::Graphics& g) override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;

    void moved() override { closePopup(); }

    void resized() override { closePopup(); }

    void visibilityChanged() override;

    void parentHierarchyChanged() override { closePopup(); }

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    struct OutsideClicks;

    juce::Rectangle<int> getTextArea() const override;
    void togglePopup();
    void rowClicked (int row);

    int mode = 0;
    bool pressed = false;
    primitives::KeyboardLoan keyboard;
    std::unique_ptr<Popup> popup;
    std::unique_ptr<OutsideClicks> outsideClicks; // while the popup is open
};

} // namespace quillon::ui_pro::controls
