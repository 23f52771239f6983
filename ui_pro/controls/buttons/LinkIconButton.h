#pragma once

#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** A toggle with a chain symbol: closed when on, apart when off. A text, if there is one, stands to its right. */
class LinkIconButton final : public primitives::FaceButton
{
public:
    explicit LinkIconButton (juce::Colour accentColour);

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;
};

} // namespace quillon::ui_pro::controls
