#include "ui_pro/controls/buttons/ToolPair.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{

class ToolPair::PartButton final : public primitives::FaceButton
{
public:
    PartButton (ToolPair& pair, Part part, const juce::String& title)
        : FaceButton (title, style::Theme::palette().accent),
          owner (pair),
          self (part)
    {
        setTitle (title);
        setOnlyLeftButton (true);
    }

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override
    {
        paintToolPlate (g, getLocalBounds(), look);
        owner.paintPart (g, getLocalBounds(), self, look);
    }

    void clicked() override { owner.act (self); }

    juce::String getTooltip() override { return owner.tooltipOf (self); }

private:
    ToolPair& owner;
    const Part self;
};

ToolPair::ToolPair (const juce::String& name, const style::HeaderToolTokens::Pair& metrics, const juce::String& first,
    const juce::String& second)
    : parts { std::make_unique<PartButton> (*this, Part::first, first),
          std::make_unique<PartButton> (*this, Part::second, second) }
{
    setName (name);
    setTitle (name);
    setMouseClickGrabsKeyboardFocus (false);
    auto x = 0;

    for (auto& part : parts)
    {
        part->setBounds (x, 0, metrics.partWidth, metrics.height);
        addAndMakeVisible (*part);
        x += metrics.partWidth + metrics.gap;
    }

    setSize (metrics.width(), metrics.height);
}

ToolPair::~ToolPair() = default;

primitives::FaceButton& ToolPair::getButton (Part part) const
{
    return *parts[static_cast<std::size_t> (part)];
}

void ToolPair::makeChoices()
{
    for (auto& part : parts)
    {
        part->setOnlyLeftButton (false);
        part->setRole (juce::AccessibilityRole::radioButton);
        part->setToggleable (true);
        part->setTriggeredOnMouseDown (true);
    }
}

} // namespace quillon::ui_pro::controls
