#include "ui_pro/controls/footer/FooterFigures.h"

#include "ui_pro/style/Theme.h"

#include <algorithm>
#include <cmath>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr double fallbackRate = 48000.0;
constexpr double lowestRate = 1000.0;
constexpr double highestRate = 384000.0;

double sanitisedRate (double rate)
{
    return std::isfinite (rate) && rate > 0.0 ? std::clamp (rate, lowestRate, highestRate) : fallbackRate;
}

/** With one decimal. */
juce::String figureText (double figure, const char* unit)
{
    return juce::String (figure, 1) + unit;
}

} // namespace

LatencyControl::LatencyControl()
    : FooterReadout ("LATENCY", figureText (0.0, " ms"), style::Theme::get().footer.latency)
{
}

void LatencyControl::setLatency (float newLatencyMs)
{
    latencyMs = sanitisedFigure (newLatencyMs);
    showText (figureText (static_cast<double> (latencyMs), " ms"));
}

SampleRateControl::SampleRateControl()
    : FooterReadout ("SR", figureText (fallbackRate / 1000.0, " kHz"), style::Theme::get().footer.sampleRate)
{
}

void SampleRateControl::setSampleRate (double newRate)
{
    sampleRate = sanitisedRate (newRate);
    showText (figureText (sampleRate / 1000.0, " kHz"));
}

CpuUsageControl::CpuUsageControl()
    : FooterReadout ("CPU:", figureText (0.0, "%"), style::Theme::get().footer.cpuUsage)
{
}

void CpuUsageControl::setCpuLoad (float newPercent)
{
    percent = sanitisedFigure (newPercent);
    showText (figureText (static_cast<double> (percent), "%"));
}

} // namespace quillon::ui_pro::controls
