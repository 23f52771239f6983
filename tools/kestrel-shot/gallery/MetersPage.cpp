#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/controls/meters/MeterPair.h"
#include "ui_pro/controls/meters/MeterStrip.h"
#include "ui_pro/style/Theme.h"

#include <cmath>

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;

float fromDb (float db)
{
    return std::pow (10.0f, db / 20.0f);
}

void addStrip (GallerySheet& sheet, const juce::String& caption, float dbL, float dbR, int height = 196)
{
    auto strip = std::make_unique<controls::MeterStrip>();
    strip->setSize (90, height);
    strip->setLevels (fromDb (dbL), fromDb (dbR));
    sheet.add (caption, std::move (strip));
}

void addReduction (GallerySheet& sheet, const juce::String& caption, float reductionDb)
{
    auto strip = std::make_unique<controls::MeterStrip>();
    strip->setSize (90, 196);
    strip->setLevels (fromDb (-6.0f), fromDb (-12.0f));
    strip->setGainReduction (reductionDb);
    sheet.add (caption, std::move (strip));
}

void addPair (GallerySheet& sheet, const juce::String& caption, float dbA, float dbB)
{
    auto pair = std::make_unique<controls::MeterPair> ("OUT L", "OUT R");
    pair->setSize (360, 44);
    pair->setColours (style::Theme::accent (5), style::Theme::accent (5));
    pair->setLevels (fromDb (dbA), fromDb (dbB));
    sheet.add (caption, std::move (pair));
}

} // namespace

void addMeters (GallerySheet& sheet)
{
    sheet.addSection ("Meters");
    addStrip (sheet, "Silence", -120.0f, -120.0f);
    addStrip (sheet, "-24 and -12 dB", -24.0f, -12.0f);
    addStrip (sheet, "0 and +3 dB", 0.0f, 3.0f);
    addStrip (sheet, "+12 dB", 12.0f, 12.0f);
    addReduction (sheet, "No reduction", 0.0f);
    addReduction (sheet, "6 dB reduced", 6.0f);
    addReduction (sheet, "36 dB reduced", 36.0f);

    auto coloured = std::make_unique<controls::MeterStrip>();
    coloured->setSize (90, 196);
    coloured->setBarColours (style::Theme::accent (5), style::Theme::accent (16));
    coloured->setLabels ("L", "R");
    coloured->setLevels (fromDb (-9.0f), fromDb (-3.0f));
    sheet.add ("Own colours", std::move (coloured));

    addPair (sheet, "Pair, silence", -120.0f, -120.0f);
    addPair (sheet, "Pair, -12.3 and -24 dB", -12.34f, -24.0f);
    addPair (sheet, "Pair, +2 and +12 dB", 2.0f, 12.0f);
    addStrip (sheet, "A tall lane's", -18.0f, -15.0f, 537);
}

} // namespace kestreleq::shot
