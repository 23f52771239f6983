#include "engine/parameters/ParameterLayout.h"

#include "engine/parameters/ParameterTable.h"
#include "engine/parameters/ParameterText.h"

#include <cmath>
#include <memory>

namespace kestreleq
{
namespace
{

/** A float parameter as its row of the table describes it. */
class TableParameter final : public juce::AudioParameterFloat
{
public:
    explicit TableParameter (const ParameterInfo& infoToUse)
        : AudioParameterFloat (juce::ParameterID { infoToUse.id, 1 }, infoToUse.name,
              juce::NormalisableRange<float> { 0.0f, 1.0f, infoToUse.stepped ? 1.0f : 0.0f, 1.0f },
              infoToUse.defaultValue, attributesOf (infoToUse)),
          info (infoToUse)
    {
    }

    /** The base class cuts a name off, and parts of the name that tell parameters apart with it. */
    juce::String getName (int maximumLength) const override
    {
        const bool isTooLong = info.shortName != nullptr && maximumLength < AudioParameterFloat::getName (128).length();
        return isTooLong ? juce::String (info.shortName).substring (0, maximumLength)
                         : AudioParameterFloat::getName (maximumLength);
    }

    // A stepped one holds only 0 and 1; the base class reports its interval to nobody.

    int getNumSteps() const override { return info.stepped ? 2 : juce::AudioProcessor::getDefaultNumParameterSteps(); }

    bool isDiscrete() const override { return info.stepped; }

    bool isBoolean() const override { return info.stepped; }

private:
    /** A host may send what is no number. */
    void valueChanged (float newValue) override
    {
        if (! std::isfinite (newValue))
            AudioParameterFloat::operator= (0.0f);
    }

    static juce::AudioParameterFloatAttributes attributesOf (const ParameterInfo& info)
    {
        const auto& conversion = textConversion (info.text);
        return juce::AudioParameterFloatAttributes()
            .withStringFromValueFunction (conversion.toText)
            .withValueFromStringFunction (conversion.toValue);
    }

    const ParameterInfo& info;
};

} // namespace

juce::AudioProcessorValueTreeState::ParameterLayout createParameterLayout()
{
    juce::AudioProcessorValueTreeState::ParameterLayout layout;

    for (const auto& info : parameterTable)
        layout.add (std::make_unique<TableParameter> (info));

    return layout;
}

} // namespace kestreleq
