#pragma once

#include "ui_pro/primitives/RoleComponent.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace quillon::ui_pro::primitives
{

/** A heading with an engraved rule beneath it. */
class SectionTitle final : public TextComponent
{
public:
    explicit SectionTitle (juce::String initialText = {});

    void setText (const juce::String& newText);

    const juce::String& getText() const { return text; }

    void paint (juce::Graphics& g) override;

private:
    juce::String text;
};

} // namespace quillon::ui_pro::primitives
