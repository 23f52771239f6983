#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/panels/EffectEditorScaffold.h"
#include "ui_pro/layout/FooterBar.h"
#include "ui_pro/layout/HeaderBar.h"
#include "ui_pro/style/Theme.h"

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;

void showSome (controls::GainSection& section, float gain1, float gain2)
{
    section.getGain1().setValue (gain1);
    section.getGain1().setValueText (juce::String (gain1 * 48.0f - 24.0f, 1) + " dB");
    section.getGain2().setValue (gain2);
    section.getGain2().setValueText (juce::String (gain2 * 48.0f - 24.0f, 1) + " dB");
    section.getLink().setToggleState (gain1 == gain2, juce::dontSendNotification);
    section.getAutoGain().setToggleState (gain1 != gain2, juce::dontSendNotification);
}

std::unique_ptr<controls::GlobalIoPanel> makeGlobalPanel()
{
    auto panel = std::make_unique<controls::GlobalIoPanel> (style::Theme::accent (5));
    panel->setSize (260, 348);
    panel->getLink().setToggleState (true, juce::dontSendNotification);
    panel->getTrimKnob().setValueText ("0.0 dB");
    return panel;
}

/** With a button in the place of the editor's own content. */
struct GlobalWithExtra final : juce::Component
{
    GlobalWithExtra()
    {
        extra.setButtonText ("BREAK");
        extra.setToggleState (true, juce::dontSendNotification);
        panel->setExtraContent (&extra);
        addAndMakeVisible (*panel);
        setSize (260, 348);
    }

    controls::OnOffButton extra { style::Theme::accent (16) };
    std::unique_ptr<controls::GlobalIoPanel> panel = makeGlobalPanel();
};

} // namespace

void addPanels (GallerySheet& sheet)
{
    sheet.addSection ("Bars");
    auto header = std::make_unique<quillon::ui_pro::layout::HeaderBar>();
    header->setSize (1608, 68);
    header->setProductName ("Kestrel EQ");
    header->setVersionText ("v1.2.0");
    header->setSubtitle ("A threat to crystal.");
    sheet.add ("Header", std::move (header));

    auto footer = std::make_unique<quillon::ui_pro::layout::FooterBar>();
    footer->setSize (1608, 56);
    sheet.add ("Footer", std::move (footer));

    sheet.addSection ("Panels");
    sheet.add ("Global", std::make_unique<GlobalWithExtra>());

    auto inputOutput =
        std::make_unique<controls::InputOutputPanel> (style::Theme::accent (5), style::Theme::accent (16));
    inputOutput->setSize (260, 348);
    showSome (inputOutput->getInput(), 0.5f, 0.5f);
    showSome (inputOutput->getOutput(), 0.4f, 0.75f);
    sheet.add ("Input and output", std::move (inputOutput));

    auto global = makeGlobalPanel();
    global->setShowsInputOutput (true);
    showSome (global->getInput(), 0.5f, 0.5f);
    showSome (global->getOutput(), 0.4f, 0.75f);
    sheet.add ("Global, with gains of its own", std::move (global));

    auto lanes = std::make_unique<controls::LaneStackPanel> (style::Theme::accent (5), 2);
    lanes->setSize (280, 200);
    lanes->getModeSelector (0).setMode (controls::LaneMode::left);
    lanes->getModeSelector (1).setMode (controls::LaneMode::right);
    lanes->getEnableButton (0).setToggleState (true, juce::dontSendNotification);
    sheet.add ("Lanes", std::move (lanes));
}

} // namespace kestreleq::shot
