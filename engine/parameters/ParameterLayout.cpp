#include "engine/parameters/ParameterLayout.h"

#include "engine/parameters/ParameterTable.h"
#include "engine/parameters/ParameterText.h"

#include <memory>

namespace kestreleq
{
namespace
{

/** A float parameter that holds only 0 and 1, and tells the host so: the base class reports its interval to nobody. */
class SteppedParameter final : public juce::AudioParameterFloat
{
public:
    using AudioParameterFloat::AudioParameterFloat;

    int getNumSteps() const override { return 2; }

    bool isDiscrete() const override { return true; }

    bool isBoolean() const override { return true; }
};

std::unique_ptr<juce::AudioParameterFloat> createParameter (const ParameterInfo& info)
{
    const juce::ParameterID id { info.id, 1 };
    const auto& conversion = textConversion (info.text);
    const auto attributes = juce::AudioParameterFloatAttributes()
                                .withStringFromValueFunction (conversion.toText)
                                .withValueFromStringFunction (conversion.toValue);

    if (info.stepped)
        return std::make_unique<SteppedParameter> (
            id, info.name, juce::NormalisableRange<float> { 0.0f, 1.0f, 1.0f, 1.0f }, info.defaultValue, attributes);

    return std::make_unique<juce::AudioParameterFloat> (
        id, info.name, juce::NormalisableRange<float> { 0.0f, 1.0f, 0.0f, 1.0f }, info.defaultValue, attributes);
}

} // namespace

juce::AudioProcessorValueTreeState::ParameterLayout createParameterLayout()
{
    juce::AudioProcessorValueTreeState::ParameterLayout layout;

    for (const auto& info : parameterTable)
        layout.add (createParameter (info));

    return layout;
}

} // namespace kestreleq
