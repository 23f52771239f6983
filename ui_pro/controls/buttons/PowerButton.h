#pragma once

#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** A round toggle with the power symbol. */
class PowerButton final : public primitives::FaceButton
{
public:
    explicit PowerButton (juce::Colour accentColour);

    /** The symbol in a box of 24 by 24: an arc that is open at the top, and a stem through the gap. */
    static juce::Path icon();

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;
};

} // namespace quillon::ui_pro::controls
