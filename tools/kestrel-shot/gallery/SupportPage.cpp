#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/support/SupportDiagnosticsPanel.h"
#include "ui_pro/style/Theme.h"

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;
using controls::SupportDiagnosticsPanel;

controls::DiagnosticsRecord exampleRecord()
{
    controls::DiagnosticsRecord record;
    record.pluginName = "Kestrel EQ";
    record.version = "1.2.0";
    record.format = "Standalone/VST3";
    record.architecture = "x64";
    record.type = "Audio Effect";
    record.operatingSystem = "Windows 11";
    record.cpu = "13th Gen Intel(R) Core(TM) i9-13900K";
    record.host = "A host with a long name 2026";
    record.channelLayout = "2 in / 2 out";
    record.ramMegabytes = 65536;
    record.inputChannels = 2;
    record.outputChannels = 2;
    record.bufferSize = 512;
    record.sampleRate = 48000.0;
    record.supportLink = "mailto:somebody";
    record.supportEmail = "somebody";
    record.manualAddress = "manual";
    record.configurationFolder = juce::File::getSpecialLocation (juce::File::tempDirectory);
    return record;
}

/** The panel over a dimmed window. */
class SupportWindow final : public juce::Component
{
public:
    SupportWindow (int width, int height, SupportDiagnosticsPanel::Tab tab)
    {
        panel.setRecord (exampleRecord());
        panel.setHooks ({ [] {}, [] {} });
        panel.setTab (tab);
        addAndMakeVisible (panel);
        setSize (width, height);
    }

    void paint (juce::Graphics& g) override { g.fillAll (style::Theme::palette().backgroundBottom); }

    void resized() override { panel.setBounds (getLocalBounds()); }

private:
    SupportDiagnosticsPanel panel;
};

} // namespace

void addSupport (GallerySheet& sheet)
{
    using Tab = SupportDiagnosticsPanel::Tab;
    sheet.addSection ("Support and diagnostics");
    sheet.add ("About, in the smallest window", std::make_unique<SupportWindow> (780, 429, Tab::about));
    sheet.add ("System", std::make_unique<SupportWindow> (780, 429, Tab::system));
    sheet.add ("Privacy", std::make_unique<SupportWindow> (780, 429, Tab::privacy));
    sheet.add ("System, in a window of twice the size", std::make_unique<SupportWindow> (1608, 858, Tab::system));
}

} // namespace kestreleq::shot
