#include "editor/ResourceManifest.h"

#include "resources/KestrelResources.h"

#include <utility>

namespace kestreleq
{

ResourceManifest::ResourceManifest()
{
    int size = 0;

    if (const auto* data = resources::getNamedResource ("manifest_json", size))
        text = juce::String::fromUTF8 (data, size);
}

ResourceManifest::ResourceManifest (juce::String json)
    : text (std::move (json))
{
}

juce::String ResourceManifest::lookup (
    const juce::String& section, const juce::String& key, const juce::String& defaultText) const
{
    juce::var document;

    if (juce::JSON::parse (text, document).failed())
        return defaultText;

    const auto found = document[juce::Identifier (section)][juce::Identifier (key)].toString();
    return found.isNotEmpty() ? found : defaultText;
}

juce::String ResourceManifest::supportEmail() const
{
    return supportUrl().fromFirstOccurrenceOf ("mailto:", false, true).upToFirstOccurrenceOf ("?", false, false);
}

} // namespace kestreleq
