#include "ui_pro/controls/footer/LatencyControl.h"

#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

juce::String textOf (float milliseconds)
{
    return juce::String (milliseconds, 1) + " ms";
}

} // namespace

LatencyControl::LatencyControl()
    : FooterReadout ("LATENCY", textOf (0.0f), style::Theme::get().footer.latency)
{
}

void LatencyControl::setLatency (float newLatencyMs)
{
    latencyMs = sanitisedFigure (newLatencyMs);
    showText (textOf (latencyMs));
}

} // namespace quillon::ui_pro::controls
