#pragma once

#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** A toggle with a text and a lamp; without a text it reads "ON" and "OFF". */
class OnOffButton final : public primitives::FaceButton
{
public:
    explicit OnOffButton (juce::Colour accentColour);

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;
};

} // namespace quillon::ui_pro::controls
