#include "tests/fuzz/Invariant.h"

#include "engine/Utf8.h"
#include "engine/parameters/ParameterTable.h"
#include "engine/parameters/ParameterText.h"

#include <cmath>
#include <cstdint>

/** A value that a user typed or a host sent: any text reads as a value within 0 to 1, and its own text reads as a value
    that shows the same. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    // Hosts and text fields hand over UTF-16.
    if (! kestreleq::isValidUtf8 ({ reinterpret_cast<const char*> (data), size }))
        return 0;

    const auto text = juce::String::fromUTF8 (reinterpret_cast<const char*> (data), static_cast<int> (size));

    for (const auto& info : kestreleq::parameterTable)
    {
        const auto& conversion = kestreleq::textConversion (info.text);
        const auto value = conversion.toValue (text);
        KESTREL_INVARIANT (std::isfinite (value) && value >= 0.0f && value <= 1.0f);

        const auto shown = conversion.toText (value, 0);
        KESTREL_INVARIANT (conversion.toText (conversion.toValue (shown), 0) == shown);
    }

    return 0;
}
