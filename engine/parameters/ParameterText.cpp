#include "engine/parameters/ParameterText.h"

#include "engine/dsp/EngineParameters.h"

#include <array>
#include <cmath>
#include <initializer_list>

namespace kestreleq
{

float clampNormalised (double value)
{
    return std::isfinite (value) ? static_cast<float> (juce::jlimit (0.0, 1.0, value)) : 0.0f;
}

namespace
{

constexpr double bandGainSpan = 10.0; // a number for the eye: the band's weight follows a table

juce::String signedNumber (double x, const char* unit)
{
    if (std::abs (x) < 0.05)
        x = 0.0; // one decimal place would show a negative zero

    juce::String text = (x > 0.0 ? "+" : "") + juce::String (x, 1, false);

    return *unit == 0 ? text : text + " " + unit;
}

double numberIn (const juce::String& text)
{
    const auto trimmed = text.removeCharacters ("dBkKhHzZ").trim();
    const auto number = trimmed.getDoubleValue();

    // What begins with "nan" or "inf" is a word, whatever follows. "1e999" is a number: infinite here, and treated so
    // by what takes it.
    const bool isWord = trimmed.trimCharactersAtStart ("+-").substring (0, 1).containsOnly ("nNiI");
    return isWord ? 0.0 : number;
}

juce::String gainText (float value, double span, const char* unit)
{
    return signedNumber ((static_cast<double> (clampNormalised (static_cast<double> (value))) - 0.5) * span, unit);
}

float gainValue (const juce::String& text, double span)
{
    return clampNormalised (numberIn (text) / span + 0.5);
}

/** The steps of the air frequency: what they show and what is read as them, in any case and with any blanks. */
struct AirStep
{
    juce::String text;
    juce::StringArray names;
    double upperKilohertz;
};

const std::array<AirStep, 5>& airSteps()
{
    static const std::array<AirStep, 5> steps { {
        { "2.5K", { "2.5K", "2500", "2500HZ" }, 2.5 },
        { "5K", { "5K", "5000", "5000HZ" }, 5.0 },
        { "10K", { "10K", "10000", "10000HZ" }, 10.0 },
        { "20K", { "20K", "20000", "20000HZ" }, 20.0 },
        { "40K", { "40K", "40000", "40000HZ" }, 40.0 },
    } };
    return steps;
}

float airStepNormalised (std::size_t step)
{
    return static_cast<float> (step) / static_cast<float> (airSteps().size() - 1);
}

juce::String airStepToText (float value, int)
{
    const auto position = static_cast<double> (clampNormalised (static_cast<double> (value))) * 4.0;

    return airSteps()[static_cast<std::size_t> (std::round (position))].text;
}

float airStepToValue (const juce::String& text)
{
    const auto& steps = airSteps();
    const auto name = text.removeCharacters (" \t").trim().toUpperCase();

    for (std::size_t i = 0; i < steps.size(); ++i)
        if (steps[i].names.contains (name))
            return airStepNormalised (i);

    const auto kilohertz = numberIn (text);

    if (kilohertz <= 1.0)
        return clampNormalised (kilohertz); // small numbers are normalised values

    for (std::size_t i = 0; i < steps.size(); ++i)
        if (kilohertz <= steps[i].upperKilohertz)
            return airStepNormalised (i);

    return 1.0f;
}

/** A stepped parameter: the two words shown, and the words that switch it on. */
juce::String choose (float value, const char* on, const char* off)
{
    return value >= flagThreshold ? on : off;
}

float isOneOf (const juce::String& text, std::initializer_list<const char*> words)
{
    const auto trimmed = text.trim();

    for (const auto* word : words)
        if (trimmed.equalsIgnoreCase (word))
            return 1.0f;

    return 0.0f;
}

} // namespace

const TextConversion& textConversion (TextKind kind)
{
    using String = juce::String;

    // Rows in the order of TextKind.
    static constexpr std::array<TextConversion, 8> conversions { {
        { [] (float v, int) { return gainText (v, bandGainSpan, ""); },
            [] (const String& text) { return gainValue (text, bandGainSpan); } },
        { [] (float v, int)
            { return String (static_cast<double> (clampNormalised (static_cast<double> (v))), 1, false); },
            [] (const String& text) { return clampNormalised (numberIn (text)); } },
        { airStepToText, airStepToValue },
        { [] (float v, int) { return gainText (v, dsp::trimGainSpan, "dB"); },
            [] (const String& text) { return gainValue (text, dsp::trimGainSpan); } },
        { [] (float v, int) { return gainText (v, dsp::stageGainSpan, "dB"); },
            [] (const String& text) { return gainValue (text, dsp::stageGainSpan); } },
        // "off" means that the lane, or the plug-in, is switched off: bypassed.
        { [] (float v, int) { return choose (v, "Bypassed", "Active"); },
            [] (const String& text) {
                return isOneOf (text, { "bypassed", "bypass", "off", "true", "1" });
            } },
        { [] (float v, int) { return choose (v, "Break", "Clean"); },
            [] (const String& text) {
                return isOneOf (text, { "break", "on", "true", "1" });
            } },
        { [] (float v, int) { return choose (v, "On", "Off"); },
            [] (const String& text) {
                return isOneOf (text, { "on", "true", "1" });
            } },
    } };

    return conversions[static_cast<std::size_t> (kind)];
}

} // namespace kestreleq
