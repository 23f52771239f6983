#pragma once

#include <juce_core/juce_core.h>

namespace kestreleq
{

/** The product's texts and links, from the JSON document that the module carries. */
class ResourceManifest
{
public:
    /** The embedded document. */
    ResourceManifest();

    /** Any other document; one that is no JSON counts as empty. */
    explicit ResourceManifest (juce::String json);

    /** The text of a key within a section; the default when it is missing or empty. */
    juce::String lookup (const juce::String& section, const juce::String& key, const juce::String& defaultText) const;

    // What the editor asks for, with its own defaults.
    juce::String name() const { return lookup ("plugin", "name", "Kestrel EQ"); }

    juce::String version() const { return lookup ("plugin", "version", "1.1.0"); }

    juce::String tagline() const { return lookup ("plugin", "tagline", "A threat to crystal."); }

    juce::String websiteUrl() const { return lookup ("resources", "websiteUrl", {}); }

    juce::String quickStartUrl() const { return lookup ("resources", "quickStartUrl", {}); }

    juce::String userManualUrl() const { return lookup ("resources", "userManualUrl", {}); }

    /** A "mailto:" link. */
    juce::String supportUrl() const { return lookup ("resources", "supportUrl", "mailto:support@quillon.example"); }

    /** The address within supportUrl. */
    juce::String supportEmail() const;

private:
    juce::String text;
};

} // namespace kestreleq
