#include "tests/fuzz/Invariant.h"

#include "editor/ResourceManifest.h"
#include "engine/Utf8.h"

#include <cstdint>

/** A manifest that anything may have happened to: every text that the editor asks for is there or is the default. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    if (! kestreleq::isValidUtf8 ({ reinterpret_cast<const char*> (data), size }))
        return 0;

    const kestreleq::ResourceManifest manifest (
        juce::String::fromUTF8 (reinterpret_cast<const char*> (data), static_cast<int> (size)));

    KESTREL_INVARIANT (manifest.name().isNotEmpty());
    KESTREL_INVARIANT (manifest.version().isNotEmpty());
    KESTREL_INVARIANT (manifest.tagline().isNotEmpty());
    KESTREL_INVARIANT (manifest.supportUrl().isNotEmpty());
    KESTREL_INVARIANT (manifest.supportUrl().contains (manifest.supportEmail()));
    KESTREL_INVARIANT (
        manifest.websiteUrl().isNotEmpty() || manifest.lookup ("resources", "websiteUrl", "none") == "none");
    manifest.quickStartUrl();
    manifest.userManualUrl();
    return 0;
}
