#include "tests/fuzz/Invariant.h"

#include "engine/KestrelProcessor.h"
#include "engine/parameters/FactoryPrograms.h"

#include <cmath>

namespace
{

using namespace kestreleq;

juce::MemoryBlock save (KestrelProcessor& processor)
{
    juce::MemoryBlock state;
    processor.getStateInformation (state);
    return state;
}

/** Whatever came in, the values are ones that a parameter can hold, and what is saved now restores to the same bytes.
 */
void checkProcessor (KestrelProcessor& processor)
{
    for (const auto& info : parameterTable)
    {
        const float value = *processor.getCore().getTree().getRawParameterValue (info.id);
        KESTREL_INVARIANT (std::isfinite (value) && value >= 0.0f && value <= 1.0f);
    }

    KESTREL_INVARIANT (juce::isPositiveAndBelow (processor.getCurrentProgram(), processor.getNumPrograms()));
    const auto saved = save (processor);
    processor.setStateInformation (saved.getData(), static_cast<int> (saved.getSize()));
    KESTREL_INVARIANT (save (processor) == saved);
}

} // namespace

/** A host's state block. Mutations of the length in its head are easy to refuse, so the rest is also wrapped anew. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    // Both stay for good: at the process's end they would outlive objects of the framework's that they use.
    [[maybe_unused]] static const auto& framework = *new juce::ScopedJuceInitialiser_GUI;
    static auto& processor = *new KestrelProcessor;

    processor.setStateInformation (data, static_cast<int> (size));

    juce::MemoryBlock wrapped;
    {
        juce::MemoryOutputStream stream (wrapped, false);
        stream.writeInt (0x21324356);
        stream.writeInt (static_cast<int> (size));
        stream.write (data, size);
        stream.writeByte (0);
    }
    processor.setStateInformation (wrapped.getData(), static_cast<int> (wrapped.getSize()));
    checkProcessor (processor);
    return 0;
}
