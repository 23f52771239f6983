#pragma once

#include "editor/ChannelMode.h"
#include "engine/KestrelProcessor.h"

#include "ui_pro/controls/footer/FooterFigures.h"
#include "ui_pro/controls/footer/OutputModeControl.h"
#include "ui_pro/controls/footer/OversamplingControl.h"
#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/layout/FooterBar.h"

#include <functional>

namespace kestreleq
{

/** The row at the bottom: what the processor tells of itself, and the levels at both ends. Message thread. */
class EditorFooter
{
public:
    /** The text stands at the row's right end. */
    EditorFooter (KestrelProcessor& processorToShow, const juce::String& labelText);

    void addTo (juce::Component& canvas);
    void place();
    void setMode (const ChannelMode& mode);

    /** Takes linear levels of both channels. */
    void clearLevels()
    {
        inputMeters.clear();
        outputMeters.clear();
    }

    void setLevels (const std::array<float, numLanes>& input, const std::array<float, numLanes>& output);

    /** Reads latency, sample rate and load. */
    void refreshTelemetry();

    /** In milliseconds; of the meters' fall. */
    void setClock (const std::function<double()>& clock) { inputMeters.clock = outputMeters.clock = clock; }

    quillon::ui_pro::controls::OversamplingControl& getOversampling() { return oversampling; }

private:
    KestrelProcessor& processor;
    quillon::ui_pro::layout::FooterBar bar;
    quillon::ui_pro::controls::LatencyControl latency;
    quillon::ui_pro::controls::SampleRateControl sampleRate;
    quillon::ui_pro::controls::OutputModeControl outputMode;
    quillon::ui_pro::controls::CpuUsageControl cpuUsage;
    quillon::ui_pro::controls::OversamplingControl oversampling;
    quillon::ui_pro::controls::MeterPair inputMeters { "IN L", "IN R" };
    quillon::ui_pro::controls::MeterPair outputMeters { "OUT L", "OUT R" };
    juce::Label label;
};

} // namespace kestreleq
