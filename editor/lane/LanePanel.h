#pragma once

#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

namespace kestreleq
{

/** The surface of one lane, with its channel's name; the lane's controls stand on it as siblings. */
class LanePanel final : public quillon::ui_pro::primitives::TextComponent
{
public:
    LanePanel();

    /** What the lane carries ("LEFT", "MID"), and the colour it goes by. */
    void setCaption (const juce::String& newCaption, juce::Colour newColour);

    /** A lane that is bypassed has its caption dim. */
    void setActive (bool shouldBeActive);

    /** Tall while the panel takes the place of both lanes. */
    void setTall (bool shouldBeTall);

    const juce::String& getCaption() const { return caption; }

    juce::Colour getCaptionColour() const { return captionColour; }

    bool isTall() const { return tall; }

    void paint (juce::Graphics& g) override;

    /** Paints the panel as it stands there without its layer. */
    void paintPanel (juce::Graphics& g) const;

private:
    juce::String caption { "LEFT" };
    juce::Colour captionColour;
    bool active = true;
    bool tall = false;
    quillon::ui_pro::primitives::CachedLayer layer;
};

} // namespace kestreleq
