#include "editor/ResourceManifest.h"

#include "resources/KestrelResources.h"

#include <gtest/gtest.h>

namespace kestreleq::test
{
namespace
{

TEST (ResourceManifest, ShipsByteForByte)
{
    int size = 0;
    const auto* data = resources::getNamedResource ("manifest_json", size);
    ASSERT_NE (data, nullptr);
    const auto lines = juce::StringArray::fromLines (juce::String::fromUTF8 (data, size));
    EXPECT_EQ (juce::String::fromUTF8 (data, size), lines.joinIntoString ("\r\n"));

    const ResourceManifest manifest;
    EXPECT_EQ (manifest.name(), "Kestrel EQ");
    EXPECT_EQ (manifest.version(), "1.2.0");
    EXPECT_TRUE (manifest.quickStartUrl().endsWith ("/en/products/kestreleq/docs/quick-start"));
    EXPECT_TRUE (manifest.userManualUrl().endsWith ("/en/products/kestreleq/docs/manual"));
    EXPECT_EQ ("mailto:" + manifest.supportEmail(), manifest.supportUrl());
}

TEST (ResourceManifest, FallsBackForWhatItLacks)
{
    for (const auto* text : { "", "{", "[1, 2]", "7", "{\"plugin\": 3}", "{\"plugin\": {\"version\": \"\"}}" })
    {
        const ResourceManifest manifest { juce::String (text) };
        EXPECT_EQ (manifest.name(), "Kestrel EQ") << text;
        EXPECT_EQ (manifest.version(), "1.1.0") << text;
        EXPECT_EQ (manifest.websiteUrl(), "") << text;
        EXPECT_TRUE (manifest.supportUrl().startsWith ("mailto:")) << text;
    }

    EXPECT_EQ (ResourceManifest (juce::String ("{\"plugin\": {\"name\": \"X\"}}")).name(), "X");
}

} // namespace
} // namespace kestreleq::test
