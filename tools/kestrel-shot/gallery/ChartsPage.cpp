#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/chart/SpectrumChartComponent.h"
#include "ui_pro/style/Theme.h"

#include <cmath>
#include <random>
#include <vector>

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;
using controls::SpectrumChartComponent;

constexpr std::uint64_t numBins = 512;

/** A falling spectrum with the ripple of noise. */
controls::SpectrumChartSnapshot makeNoise()
{
    std::mt19937 random (1);
    std::vector<float> levels;

    for (std::uint64_t i = 0; i < numBins; ++i)
        levels.push_back (-18.0f - 0.075f * static_cast<float> (i) + 9.0f * static_cast<float> (random()) / 4.3e9f);

    return { true, 48000.0, numBins, 1, [levels] (std::uint64_t i) { return levels[static_cast<std::size_t> (i)]; } };
}

/** A tone that only one bin holds. */
controls::SpectrumChartSnapshot makeTone()
{
    constexpr std::uint64_t toneBin = 401;
    return { true, 48000.0, numBins, 1,
        [noise = makeNoise()] (std::uint64_t i) { return i == toneBin ? -3.0f : noise.valueAt (i) - 30.0f; } };
}

/** A bump of so many dB around a bin. */
float bump (std::uint64_t i, float peak, float centre)
{
    const auto distance = (static_cast<float> (i) - centre) / 60.0f;
    return peak * std::exp (-distance * distance);
}

controls::SpectrumChartSnapshot makeGains()
{
    return { true, 48000.0, numBins, 1,
        [] (std::uint64_t i) { return bump (i, 12.0f, 180.0f) + bump (i, -9.0f, 340.0f) + bump (i, 6.0f, 500.0f); } };
}

SpectrumChartComponent& addChart (GallerySheet& sheet, const juce::String& caption, int width, int height = 196)
{
    auto chart = std::make_unique<SpectrumChartComponent>();
    chart->setSize (width, height);
    return sheet.add (caption, std::move (chart));
}

std::vector<controls::SpectrumChartExtraTrace> makeExtraTraces()
{
    return { { "", style::Theme::accent (5), 1.15f,
                 [] (std::uint64_t i) { return -20.0f - 0.05f * static_cast<float> (i); } },
        { "HOLD", style::Theme::accent (3), 1.15f,
            [] (std::uint64_t i) { return -8.0f - 0.07f * static_cast<float> (i); } } };
}

} // namespace

void addCharts (GallerySheet& sheet)
{
    sheet.addSection ("Spectrum charts");
    addChart (sheet, "Waiting", 788);
    addChart (sheet, "Spectrum", 788).setSnapshot (makeNoise());
    addChart (sheet, "Waiting, in little room", 320, 60);
    addChart (sheet, "A tone of one bin over noise", 440).setSnapshot (makeTone());

    auto& difference = addChart (sheet, "Difference", 788);
    difference.setSpectrumScale (false);
    difference.setSnapshot (makeGains());

    auto& magnitude = addChart (sheet, "Difference, boosts only", 788);
    magnitude.setSpectrumScale (false);
    magnitude.setSignedDifference (false);
    magnitude.setAccentRole (style::accentRole (3));
    magnitude.setSnapshot (makeGains());

    auto& extra = addChart (sheet, "Extra traces", 788);
    extra.setSnapshot (makeNoise());
    extra.setExtraTraces (makeExtraTraces());

    auto& plain = addChart (sheet, "No fill, double width, no grid", 788);
    plain.setFill (false);
    plain.setVisibility ({ false, true, true });
    plain.setLineWidthScale (2.0f);
    plain.setSnapshot (makeNoise());
}

} // namespace kestreleq::shot
