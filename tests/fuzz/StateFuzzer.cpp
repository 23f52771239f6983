#include "tests/fuzz/Invariant.h"

#include "tests/support/ProcessorRig.h"

#include <cmath>
#include <cstdint>

/** A host's state block. Mutations of the length in its head are easy to refuse, so the rest is also wrapped anew. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    using namespace kestreleq;

    // Both stay for good: at the process's end they would outlive objects of the framework's that they use.
    [[maybe_unused]] static const auto& framework = *new juce::ScopedJuceInitialiser_GUI;
    static auto& rig = *new test::ProcessorRig;
    rig.processor.setStateInformation (data, static_cast<int> (size));
    rig.restore (test::wrapped ({ reinterpret_cast<const char*> (data), size }));

    // Whatever came in, the values are ones that a parameter can hold, and what is saved now restores to the same
    // bytes.
    for (const auto& info : parameterTable)
    {
        const float value = *rig.processor.getCore().getTree().getRawParameterValue (info.id);
        KESTREL_INVARIANT (std::isfinite (value) && value >= 0.0f && value <= 1.0f);
    }

    KESTREL_INVARIANT (juce::isPositiveAndBelow (rig.processor.getCurrentProgram(), rig.processor.getNumPrograms()));
    const auto saved = rig.save();
    rig.restore (saved);
    KESTREL_INVARIANT (rig.save() == saved);
    return 0;
}
