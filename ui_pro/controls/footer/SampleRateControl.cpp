#include "ui_pro/controls/footer/SampleRateControl.h"

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

juce::String textOf (double rate)
{
    return juce::String (rate / 1000.0, 1) + " kHz";
}

} // namespace

SampleRateControl::SampleRateControl()
    : FooterReadout ("SR", textOf (48000.0), style::Theme::get().footer.sampleRate)
{
}

void SampleRateControl::setSampleRate (double newRate)
{
    sampleRate = sanitisedRate (newRate);
    showText (textOf (sampleRate));
}

} // namespace quillon::ui_pro::controls
