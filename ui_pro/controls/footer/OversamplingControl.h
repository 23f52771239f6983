#pragma once

#include "ui_pro/controls/footer/FooterReadout.h"
#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/FaceButton.h"

#include <functional>
#include <memory>

namespace quillon::ui_pro::controls
{

/** The footer's oversampling mode, with a list that offers all of them: 0 Live, 1 Design, 2 Mix, 3 Master. Without the
    owner's two hooks the list only shows them. */
class OversamplingControl final : public FooterReadout
{
public:
    using Popup = primitives::DropDownList;

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

    void openPopup() { list.open (makeRows()); }

    void closePopup() { list.close(); }

    /** The open list, or null. */
    Popup* getPopup() { return list.isOpen() ? &list : nullptr; }

    void paint (juce::Graphics&) override {} // the button does it

    void resized() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    class Face;

    juce::Rectangle<int> getTextArea() const override;
    void paintFace (juce::Graphics& g, const primitives::ButtonLook& look);
    std::vector<primitives::ListItem> makeRows();
    void choose (int newMode);

    int mode = 0;
    std::unique_ptr<Face> face;
    Popup list;
};

} // namespace quillon::ui_pro::controls
