#include "engine/analysis/SpectrumEstimator.h"

#include "engine/analysis/SharedTables.h"

#include <juce_audio_basics/juce_audio_basics.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <utility>

namespace kestreleq::analysis
{
namespace
{

constexpr auto decibelsPerOctaveOfPower = 3.01029995663981195f; // 10 log10 2

/** Cosine-sum windows in their periodic form; Harris, "On the Use of Windows for Harmonic Analysis with the Discrete
    Fourier Transform", 1978. x runs from 0 to 2 pi. */
double windowAt (Window window, double x)
{
    switch (window)
    {
        case Window::hann:
            return 0.5 - 0.5 * std::cos (x);
        case Window::blackmanHarris:
            return 0.35875 - 0.48829 * std::cos (x) + 0.14128 * std::cos (2.0 * x) - 0.01168 * std::cos (3.0 * x);
        case Window::rectangular:
            break;
    }

    return 1.0;
}

/** Power 1 is 0 dB. A power that is not a number, as from a frame that overflows, is silence. */
float toDecibels (float power)
{
    return power > 1e-12f ? std::clamp (decibelsPerOctaveOfPower * std::log2 (power), spectrumFloor, 0.0f)
                          : spectrumFloor;
}

double finiteOr (double fallback, double value)
{
    return std::isfinite (value) ? value : fallback;
}

} // namespace

struct SpectrumEstimator::WindowTable
{
    WindowTable (Window kind, std::size_t numSamples)
        : coefficients (numSamples)
    {
        const auto length = static_cast<double> (numSamples);

        for (std::size_t n = 0; n < numSamples; ++n)
            coefficients[n] =
                static_cast<float> (windowAt (kind, 2.0 * std::numbers::pi * static_cast<double> (n) / length));

        const auto coherentGain =
            std::max (0.1, std::accumulate (coefficients.begin(), coefficients.end(), 0.0) / length);
        const auto amplitudeScale = 1.0 / (length * coherentGain);
        powerScale = static_cast<float> (amplitudeScale * amplitudeScale);
    }

    std::vector<float> coefficients;
    float powerScale; // turns a bin's power into that of a full-scale sine's share
};

void SpectrumEstimator::prepare (double newSampleRate, std::size_t newFrameLength)
{
    sampleRate = newSampleRate;
    frameLength = newFrameLength;
    const auto bins = frameLength / 2 + 1;
    fft.prepare (frameLength);
    fetchWindow();

    for (auto* spectrum : { &current, &averaged, &peaks })
        spectrum->assign (bins, spectrumFloor);

    heldFrames.assign (bins, 0);
}

void SpectrumEstimator::setWindow (Window newWindow)
{
    window = newWindow;

    if (windowTable != nullptr)
        fetchWindow();
}

void SpectrumEstimator::setAveragingTime (double milliseconds)
{
    averagingTime = std::max (0.0, finiteOr (50.0, milliseconds));
}

void SpectrumEstimator::setPeakHoldTime (double milliseconds)
{
    holdTime = std::clamp (finiteOr (1000.0, milliseconds), 0.0, 5000.0);
}

void SpectrumEstimator::setPeakDecay (double decibelsPerSecond)
{
    peakDecay = std::max (0.0, finiteOr (20.0, decibelsPerSecond));
}

void SpectrumEstimator::fetchWindow()
{
    static SharedTables<std::pair<Window, std::size_t>, WindowTable> shared;
    windowTable = shared.get ({ window, frameLength }, [this] { return WindowTable (window, frameLength); });
}

void SpectrumEstimator::analyse (std::span<const float> frame)
{
    if (frame.empty() || frame.size() != frameLength)
        return;

    const juce::ScopedNoDenormals noDenormals; // a fading tail would take twice the time
    const auto& coefficients = windowTable->coefficients;
    const auto powerScale = windowTable->powerScale;
    const auto input = fft.input();

    for (std::size_t n = 0; n < frame.size(); ++n)
        input[n] = std::abs (frame[n]) <= std::numeric_limits<float>::max() ? frame[n] * coefficients[n] : 0.0f;

    fft.transform (current);

    // All bins but the outer two share their amplitude with a negative frequency.
    const auto bins = current.size();
    current[0] = toDecibels (current[0] * powerScale);
    current[bins - 1] = toDecibels (current[bins - 1] * powerScale);

    for (std::size_t k = 1; k < bins - 1; ++k)
        current[k] = toDecibels (current[k] * powerScale * 4.0f);

    updateAverage();
    updatePeaks();
}

void SpectrumEstimator::updateAverage()
{
    if (! (averagingTime > 0.0))
    {
        std::copy (current.begin(), current.end(), averaged.begin());
        return;
    }

    const auto a = static_cast<float> (std::exp (-1.0 / (framesPerSecond() * averagingTime / 1000.0)));

    for (std::size_t k = 0; k < current.size(); ++k)
        averaged[k] = (1.0f - a) * current[k] + a * averaged[k];
}

void SpectrumEstimator::updatePeaks()
{
    if (! (holdTime > 0.0))
    {
        std::copy (current.begin(), current.end(), peaks.begin());
        std::fill (heldFrames.begin(), heldFrames.end(), 0u);
        return;
    }

    const auto framesToHold = holdTime / 1000.0 * framesPerSecond();
    const auto fallPerFrame = static_cast<float> (peakDecay / framesPerSecond());

    for (std::size_t k = 0; k < current.size(); ++k)
    {
        if (current[k] > peaks[k])
        {
            peaks[k] = current[k];
            heldFrames[k] = 0;
        }
        else if (++heldFrames[k] >= framesToHold)
        {
            peaks[k] = std::max (current[k], peaks[k] - fallPerFrame);
        }
    }
}

} // namespace kestreleq::analysis
