#pragma once

#include "ui_pro/controls/panels/LaneMode.h"
#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** Shows a lane's channel mode; a click opens a list of all of them. */
class LaneModeSelector final : public primitives::FaceButton
{
public:
    explicit LaneModeSelector (juce::Colour accentColour);

    /** Called with what the user has chosen from the list, unless it is the mode shown. */
    std::function<void (LaneMode)> onChoice;

    void setMode (LaneMode newMode);

    LaneMode getMode() const { return mode; }

    /** What a line of the list does. */
    void choose (LaneMode chosen);

    void clicked() override;
    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;

private:
    void internalClickCallback (const juce::ModifierKeys& modifiers) override;

    LaneMode mode = LaneMode::stereo;
    primitives::DropDownList list;
};

} // namespace quillon::ui_pro::controls
