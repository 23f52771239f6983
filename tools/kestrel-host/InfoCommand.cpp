#include "tools/kestrel-host/Commands.h"
#include "tools/kestrel-host/HostedModule.h"

#include <iostream>

namespace kestreleq::host
{
namespace
{

constexpr int textLength = 128;

juce::var busList (const juce::AudioProcessor& processor, bool isInput)
{
    juce::Array<juce::var> buses;

    for (int i = 0; i < processor.getBusCount (isInput); ++i)
    {
        const auto* bus = processor.getBus (isInput, i);
        juce::DynamicObject::Ptr object (new juce::DynamicObject());
        object->setProperty ("name", bus->getName());
        object->setProperty ("channels", bus->getNumberOfChannels());
        buses.add (object.get());
    }

    return buses;
}

/** The texts at 0, 0.01 ... 1. */
juce::var textsOver (const juce::AudioProcessorParameter& parameter)
{
    juce::Array<juce::var> texts;

    for (int i = 0; i <= 100; ++i)
        texts.add (parameter.getText (static_cast<float> (i) / 100.0f, textLength));

    return texts;
}

juce::var parameterList (const HostedModule& module, bool withTexts)
{
    juce::Array<juce::var> parameters;

    for (const auto& [id, hosted] : module.parameters())
    {
        const auto value = hosted->getDefaultValue();
        juce::DynamicObject::Ptr object (new juce::DynamicObject());
        object->setProperty ("index", parameters.size());
        object->setProperty ("id", juce::String (id));
        object->setProperty ("name", hosted->getName (textLength));
        object->setProperty ("default", static_cast<double> (value));
        object->setProperty ("defaultText", hosted->getText (value, textLength));
        object->setProperty ("stepped", hosted->isDiscrete());

        if (withTexts)
            object->setProperty ("texts", textsOver (*hosted));

        parameters.add (object.get());
    }

    return parameters;
}

juce::var describe (HostedModule& module, bool withTexts)
{
    auto& instance = module.instance();
    instance.prepareToPlay (48000.0, 512); // only then does the host ask for the latency

    juce::DynamicObject::Ptr object (new juce::DynamicObject());
    object->setProperty ("name", module.description().name);
    object->setProperty ("vendor", module.description().manufacturerName);
    object->setProperty ("version", module.description().version);
    object->setProperty ("latencySamples", instance.getLatencySamples());
    object->setProperty ("inputs", busList (instance, true));
    object->setProperty ("outputs", busList (instance, false));
    object->setProperty ("parameters", parameterList (module, withTexts));
    return object.get();
}

void printBuses (const char* title, const juce::var& buses)
{
    std::cout << title;

    for (const auto& bus : *buses.getArray())
        std::cout << "  " << bus["name"].toString() << " (" << bus["channels"].toString() << " channels)";

    std::cout << '\n';
}

void printText (const juce::var& module)
{
    std::cout << "name     " << module["name"].toString() << "\nvendor   " << module["vendor"].toString()
              << "\nversion  " << module["version"].toString() << "\nlatency  " << module["latencySamples"].toString()
              << " samples\n";
    printBuses ("inputs ", module["inputs"]);
    printBuses ("outputs", module["outputs"]);
    std::cout << "parameters\n";

    for (const auto& parameter : *module["parameters"].getArray())
    {
        const auto value = juce::String (static_cast<double> (parameter["default"]), 3);
        const auto line = parameter["index"].toString().paddedLeft (' ', 4) + "  " +
            parameter["id"].toString().paddedRight (' ', 13) + parameter["name"].toString().paddedRight (' ', 20) +
            value.paddedRight (' ', 7) + parameter["defaultText"].toString().paddedRight (' ', 12) +
            (parameter["stepped"] ? "stepped" : "");
        std::cout << line.trimEnd() << '\n';
    }
}

} // namespace

void run (const InfoOptions& options)
{
    HostedModule module (options.module);
    const auto description = describe (module, options.texts);

    if (options.json)
        std::cout << juce::JSON::toString (description, juce::JSON::FormatOptions {}.withMaxDecimalPlaces (7)) << '\n';
    else
        printText (description);
}

} // namespace kestreleq::host
