#include "engine/PluginState.h"

#include "engine/HarmlessXml.h"
#include "engine/Utf8.h"
#include "engine/parameters/FactoryPrograms.h"
#include "engine/parameters/ParameterTable.h"
#include "engine/parameters/TreeNames.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace kestreleq
{
namespace
{

const juce::Identifier programProperty ("currentProgram");
const juce::Identifier scaleStepProperty ("editorScaleStep");

// The framework's wrapper: a magic number and the text's length before the text, a zero after it.
constexpr int wrapperHeader = 8;

const ParameterInfo* findParameter (const juce::String& id)
{
    const auto* found = std::find_if (
        parameterTable.begin(), parameterTable.end(), [&id] (const ParameterInfo& info) { return id == info.id; });

    return found == parameterTable.end() ? nullptr : found;
}

/** The nearest value that the parameter can hold; 0 for what is no finite number. */
float legalValue (const ParameterInfo& info, const juce::var& stored)
{
    const auto value = static_cast<double> (stored);
    const auto limited = std::isfinite (value) ? static_cast<float> (juce::jlimit (0.0, 1.0, value)) : 0.0f;

    return info.stepped ? std::round (limited) : limited;
}

/** A tree of nothing but known parameters with legal values; of two children of one ID the later counts. */
juce::ValueTree cleaned (const juce::ValueTree& stored)
{
    juce::ValueTree clean (tree_names::parameters);

    for (const auto& child : stored)
    {
        const auto id = child.getProperty (tree_names::id).toString();
        const auto* info = child.hasType (tree_names::parameter) ? findParameter (id) : nullptr;

        if (info == nullptr || ! child.hasProperty (tree_names::value))
            continue;

        auto target = clean.getChildWithProperty (tree_names::id, id);

        if (! target.isValid())
        {
            target = juce::ValueTree (tree_names::parameter, { { tree_names::id, id } });
            clean.appendChild (target, nullptr);
        }

        target.setProperty (
            tree_names::value, static_cast<double> (legalValue (*info, child[tree_names::value])), nullptr);
    }

    return clean;
}

std::optional<PluginState> fromXml (const juce::XmlElement& xml)
{
    const auto tree = juce::ValueTree::fromXml (xml);
    const int program = tree[programProperty]; // below 0: none
    const bool isKnown = program >= 0 && program < static_cast<int> (factoryPrograms.size());
    return PluginState { cleaned (tree), { isKnown ? program : 0, program < 0 },
        tree.getProperty (scaleStepProperty, -1) };
}

} // namespace

void writeState (const PluginState& state, juce::MemoryBlock& destination)
{
    auto tree = state.parameters.createCopy();
    tree.setProperty (programProperty, state.preset.isCustom ? -1 : state.preset.program, nullptr);
    tree.setProperty (scaleStepProperty, state.editorScaleStep, nullptr);

    if (const auto xml = tree.createXml())
        juce::AudioProcessor::copyXmlToBinary (*xml, destination);
}

std::optional<PluginState> readState (const void* data, int size)
{
    if (data == nullptr || size <= wrapperHeader)
        return {};

    // What the framework will read: as much as the header says, up to the first zero.
    const auto* bytes = static_cast<const char*> (data);
    const auto stated = static_cast<std::size_t> (juce::ByteOrder::littleEndianInt (bytes + 4));
    std::string_view text (bytes + wrapperHeader, std::min (stated, static_cast<std::size_t> (size - wrapperHeader)));
    text = text.substr (0, text.find ('\0'));

    if (! isHarmlessXml (text))
        return {};

    const auto xml = juce::AudioProcessor::getXmlFromBinary (data, size);
    return xml != nullptr && xml->hasTagName (tree_names::parameters) ? fromXml (*xml) : std::nullopt;
}

std::optional<PluginState> readStateText (const juce::String& text)
{
    if (! isValidUtf8 (text.toRawUTF8())) // before anything walks over it
        return {};

    const auto trimmed = text.trim();

    if (! isHarmlessXml (trimmed.toRawUTF8()))
        return {};

    const auto xml = juce::parseXML (trimmed);
    const bool isOurs = xml != nullptr && (xml->hasTagName (tree_names::parameters) || xml->hasTagName ("KestrelEQ"));
    return isOurs ? fromXml (*xml) : std::nullopt;
}

} // namespace kestreleq
