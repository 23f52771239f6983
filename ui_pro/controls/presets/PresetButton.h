#pragma once

#include "ui_pro/controls/presets/PresetDrawing.h"
#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** A button of the preset selector's strip or of its browser. */
class PresetButton final : public primitives::FaceButton
{
public:
    enum class Look
    {
        initialise, // the parts of the strip
        previous,
        display, // shows the current preset and opens the browser
        next,
        button,  // the buttons of the browser
        primary, // the one that the browser is opened for
        chooser, // opens a list
        tab      // one of several, of which one is on
    };

    PresetButton (Look lookToUse, const juce::String& title, const juce::String& textToShow = {});

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;

private:
    juce::Path shape() const;
    void paintDisplay (juce::Graphics& g, const presets::PartState& state) const;
    void paintPrimary (juce::Graphics& g, const presets::PartState& state) const;
    void paintTab (juce::Graphics& g, const presets::PartState& state) const;
    void paintPlain (juce::Graphics& g, const presets::PartState& state) const;

    const Look kind;
};

} // namespace quillon::ui_pro::controls
