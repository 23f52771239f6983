#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/footer/FooterFigures.h"
#include "ui_pro/controls/footer/OutputModeControl.h"
#include "ui_pro/controls/footer/OversamplingControl.h"

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;

/** A place with room for the open list above the control. */
class PopupStage final : public juce::Component
{
public:
    explicit PopupStage (bool canChange)
    {
        setSize (160, 180);
        addAndMakeVisible (control);
        control.setTopLeftPosition (0, getHeight() - control.getHeight());

        if (canChange)
        {
            control.onModeChange = [this] (int mode) { control.setMode (mode); };
            control.currentMode = [this] { return control.getMode(); };
            control.setMode (1);
        }

        control.openPopup();
    }

private:
    controls::OversamplingControl control;
};

} // namespace

void addFooter (GallerySheet& sheet)
{
    sheet.addSection ("Footer");
    sheet.add ("Oversampling", std::make_unique<controls::OversamplingControl>()).setMode (3);
    sheet.add ("Latency", std::make_unique<controls::LatencyControl>()).setLatency (999.9f);
    sheet.add ("Sample rate", std::make_unique<controls::SampleRateControl>()).setSampleRate (384000.0);

    auto& output = sheet.add ("Output mode", std::make_unique<controls::OutputModeControl>());
    output.setMode (1);
    output.setKnobShown (false);
    sheet.add ("Output mode with knob", std::make_unique<controls::OutputModeControl>()).setMode (1);
    sheet.add ("CPU", std::make_unique<controls::CpuUsageControl>()).setCpuLoad (999.9f);
    sheet.add ("Modes to choose", std::make_unique<PopupStage> (true));
    sheet.add ("Fixed mode", std::make_unique<PopupStage> (false));
}

} // namespace kestreleq::shot
