#include "tests/fuzz/Invariant.h"

#include "engine/PluginState.h"
#include "engine/parameters/ParameterTable.h"
#include "tests/support/XmlStructure.h"

#include <cmath>
#include <cstdint>

/** Text from the clipboard. What our scanner passes is to the framework's parser what it is to the scanner, and what is
    accepted holds nothing but known parameters with values that they can have. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes (reinterpret_cast<const char*> (data), size);

    if (const auto structure = kestreleq::test::structureByScanner (bytes))
        KESTREL_INVARIANT (kestreleq::test::structureByParser (bytes) == *structure);

    const auto text = juce::String::fromUTF8 (reinterpret_cast<const char*> (data), static_cast<int> (size));
    const auto state = kestreleq::readStateText (text);

    if (! state)
        return 0;

    KESTREL_INVARIANT (state->parameters.getNumChildren() <= static_cast<int> (kestreleq::numParameters));

    for (const auto& child : state->parameters)
    {
        const double value = child["value"];
        KESTREL_INVARIANT (std::isfinite (value) && value >= 0.0 && value <= 1.0);
    }

    return 0;
}
