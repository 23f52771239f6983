#pragma once

#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::controls
{

/** A button that does something at once: a text, an icon, or both. The one that a panel suggests is the primary one. */
class IconActionButton final : public primitives::FaceButton
{
public:
    /** The icon is a path to fill, in any box of its own; an empty one leaves the text alone. */
    explicit IconActionButton (const juce::String& caption, juce::Path iconPath = {});
    IconActionButton (const juce::String& caption, juce::Path iconPath, juce::Colour accentColour);

    void setIcon (const juce::Path& newIcon);
    void setPrimary (bool shouldBePrimary);

    bool isPrimary() const { return primary; }

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;

private:
    juce::Path icon;
    bool primary = false;
};

} // namespace quillon::ui_pro::controls
