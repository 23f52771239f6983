#pragma once

#include "ui_pro/style/Theme.h"

#include <cstdint>
#include <functional>

namespace quillon::ui_pro::controls
{

/** One spectrum, or one curve of gains, on its way to a chart. Its bins are spaced logarithmically from 20 Hz to
    20 kHz. The rate and the sequence are the producer's own; no chart reads them. */
struct SpectrumChartSnapshot
{
    bool valid = false;
    double sampleRate = 0.0; // Hz
    std::uint64_t binCount = 0;
    std::uint64_t sequence = 0;
    std::function<float (std::uint64_t)> valueAt; // dB
};

/** What a chart shows. */
struct SpectrumChartVisibility
{
    bool grid = true; // with the background and the labels
    bool trace = true;
    bool extraTraces = true; // with their chips

    bool operator== (const SpectrumChartVisibility&) const = default;
};

/** What the levels of a chart are. */
enum class SpectrumChartMode
{
    spectrum,            // -84 to +24 dB, filled from the bottom
    difference,          // -18 to +18 dB, filled from the centre
    differenceMagnitude, // boosts only, 0 to 18 dB, filled from the bottom
};

/** How a chart draws its traces. */
struct SpectrumChartTraceConfig
{
    bool spectrumScale = true; // false: the values are gains, drawn as a difference
    bool signedDifference = true;
    bool fill = true;
    juce::Colour zeroLineColour = style::Theme::get().surface.spectrumZeroLine;
    juce::Colour gridColour = style::Theme::get().surface.spectrumGridLine;
    juce::Colour traceColour {}; // transparent: the accent's

    SpectrumChartMode getMode() const
    {
        return spectrumScale   ? SpectrumChartMode::spectrum
            : signedDifference ? SpectrumChartMode::difference
                               : SpectrumChartMode::differenceMagnitude;
    }

    bool operator== (const SpectrumChartTraceConfig&) const = default;
};

/** A further curve over the main one, with as many bins as the snapshot. */
struct SpectrumChartExtraTrace
{
    juce::String label; // of its chip; "TRACE" when empty
    juce::Colour colour;
    float lineWidth = 1.15f;
    std::function<float (std::uint64_t)> valueAt; // dB
};

} // namespace quillon::ui_pro::controls
