#pragma once

#include "ui_pro/controls/buttons/FaceButton.h"
#include "ui_pro/controls/panels/LaneMode.h"

namespace quillon::ui_pro::controls
{

/** Shows a lane's channel mode; a click opens a menu of all of them. */
class LaneModeSelector final : public FaceButton
{
public:
    explicit LaneModeSelector (juce::Colour accentColour);

    /** Called with what the user has chosen from the menu, unless it is the mode shown. */
    std::function<void (LaneMode)> onChoice;

    void setMode (LaneMode newMode);

    LaneMode getMode() const { return mode; }

    /** What a menu item does. */
    void choose (LaneMode chosen);

    void clicked() override;
    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;

private:
    void internalClickCallback (const juce::ModifierKeys& modifiers) override;

    LaneMode mode = LaneMode::stereo;
};

} // namespace quillon::ui_pro::controls
