#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/buttons/IconActionButton.h"
#include "ui_pro/controls/buttons/LinkIconButton.h"
#include "ui_pro/controls/buttons/OnOffButton.h"
#include "ui_pro/controls/buttons/PowerButton.h"
#include "ui_pro/controls/knob/KnobControl.h"

#include <utility>

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;
using primitives::ButtonLook;

/** Shows a button's face in a state that otherwise takes a mouse or a keyboard. */
template <typename ButtonType>
struct FaceIn final : juce::Component
{
    FaceIn (std::unique_ptr<ButtonType> shown, const ButtonLook& state)
        : button (std::move (shown)),
          look (state)
    {
        setSize (button->getWidth(), button->getHeight());
    }

    void paint (juce::Graphics& g) override { button->paintFace (g, look); }

    std::unique_ptr<ButtonType> button;
    ButtonLook look;
};

template <typename MakeButton>
void addStates (GallerySheet& sheet, const MakeButton& make)
{
    const std::pair<const char*, ButtonLook> states[] {
        { "Off", {} },
        { "Off, hover", { false, true } },
        { "Off, pressed", { false, true, true } },
        { "Off, focus", { false, false, false, true, true } },
        { "Off, disabled", { false, false, false, false } },
        { "On", { true } },
        { "On, hover", { true, true } },
        { "On, pressed", { true, true, true } },
        { "On, focus", { true, false, false, true, true } },
        { "On, disabled", { true, false, false, false } },
    };

    for (const auto& [caption, look] : states)
        sheet.add (caption, std::make_unique<FaceIn<typename decltype (make())::element_type>> (make(), look));
}

template <typename ButtonType, typename... Arguments>
std::unique_ptr<ButtonType> makeButton (int width, int height, const juce::String& text, Arguments&&... arguments)
{
    auto button = std::make_unique<ButtonType> (std::forward<Arguments> (arguments)...);
    button->setSize (width, height);
    button->setButtonText (text);
    return button;
}

controls::KnobControl& addKnob (GallerySheet& sheet, const juce::String& caption, int width, int height)
{
    auto knob = std::make_unique<controls::KnobControl>();
    knob->setSize (width, height);
    return sheet.add (caption, std::move (knob));
}

void addKnobs (GallerySheet& sheet)
{
    sheet.addSection ("Knob");

    for (const auto& [position, text] :
        { std::pair (0.0f, "-24.0"), { 0.25f, "-12.0" }, { 0.5f, "0.0" }, { 0.8f, "+14.4" }, { 1.0f, "+24.0" } })
    {
        auto& knob = addKnob (sheet, "Value " + juce::String (position), 118, 128);
        knob.setLabel ("160");
        knob.setMaxDiameter (58);
        knob.setLabelGap (2);
        knob.setValueGap (2);
        knob.setColourId (14);
        knob.setValue (position);
        knob.setValueText (text);
    }

    for (const auto colourId : { 12, 0, 1, 2, 5, 8 })
    {
        auto& knob = addKnob (sheet, "Accent " + juce::String (colourId), 86, 96);
        knob.setColourId (colourId);
        knob.setValue (0.66f);
    }

    auto& disabled = addKnob (sheet, "Disabled", 86, 96);
    disabled.setEnabled (false);

    auto& stepped = addKnob (sheet, "Five steps", 86, 96);
    stepped.setLabel ("FREQ");
    stepped.setColourId (2);
    stepped.setSteps (5);
    stepped.setValue (0.75f);
    stepped.setValueText ("20K");

    auto& compact = addKnob (sheet, "Compact", 130, 62);
    compact.setLayoutStyle (0);
    compact.setLabel ("OUTPUT");

    auto& bare = addKnob (sheet, "Bare", 54, 54);
    bare.setShowLabel (false);
    bare.setShowValue (false);

    for (const auto diameter : { 40, 28, 18, 10, 4 })
    {
        auto& knob = addKnob (sheet, juce::String (diameter) + " px", diameter + 4, diameter);
        knob.setShowLabel (false);
        knob.setShowValue (false);
        knob.setValue (0.7f);
    }

    addKnob (sheet, "20 x 20", 20, 20);
}

} // namespace

void addControls (GallerySheet& sheet)
{
    addKnobs (sheet);

    const auto cyan = style::Theme::accent (5);
    const auto orange = style::Theme::accent (16);
    const auto green = style::Theme::accent (3);

    sheet.addSection ("Power button");
    addStates (sheet, [&] { return makeButton<controls::PowerButton> (26, 26, {}, green); });

    sheet.addSection ("On/off button");
    addStates (sheet, [&] { return makeButton<controls::OnOffButton> (124, 28, "AUTO GAIN", cyan); });
    addStates (sheet, [&] { return makeButton<controls::OnOffButton> (72, 28, {}, orange); });

    sheet.addSection ("Link button");
    addStates (sheet, [&] { return makeButton<controls::LinkIconButton> (72, 24, "LINK", cyan); });
    addStates (sheet, [&] { return makeButton<controls::LinkIconButton> (32, 24, {}, orange); });

    juce::Path arrow;
    arrow.addArrow ({ 2.0f, 12.0f, 22.0f, 12.0f }, 4.0f, 14.0f, 9.0f);
    sheet.addSection ("Action button");
    addStates (sheet, [&] { return makeButton<controls::IconActionButton> (128, 30, "Save report", "Save", arrow); });
    addStates (sheet, [&] { return makeButton<controls::IconActionButton> (32, 30, {}, "Next", arrow); });
    sheet.add ("Primary", makeButton<controls::IconActionButton> (128, 30, "Copy report", "Copy")).setPrimary (true);
}

} // namespace kestreleq::shot
