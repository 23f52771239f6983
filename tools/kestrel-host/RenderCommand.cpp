#include "tools/kestrel-host/Commands.h"
#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/HostedModule.h"
#include "tools/kestrel-host/Paths.h"
#include "tools/kestrel-host/Progress.h"
#include "tools/kestrel-host/RestoreState.h"
#include "tools/kestrel-host/StateFile.h"
#include "tools/kestrel-host/WavReader.h"
#include "tools/kestrel-host/WavWriter.h"

#include <algorithm>

namespace kestreleq::host
{
namespace
{

void checkParameters (const HostedModule& module, const RenderOptions& options)
{
    for (const auto& set : options.sets)
        module.requireParameter (set.id);

    for (const auto& timed : options.timed)
        module.requireParameter (timed.assignment.id);
}

std::vector<TimedAssignment> inOrderOfTime (std::vector<TimedAssignment> timed)
{
    const auto isEarlier = [] (const TimedAssignment& a, const TimedAssignment& b) { return a.seconds < b.seconds; };
    std::stable_sort (timed.begin(), timed.end(), isEarlier);
    return timed;
}

void renderAll (HostedModule& module, WavReader& input, WavWriter& output, int maximumBlock,
    const std::vector<TimedAssignment>& timed)
{
    juce::AudioBuffer<float> memory (2, maximumBlock);
    auto* left = memory.getWritePointer (0);
    auto* right = memory.getWritePointer (1);
    auto due = timed.begin();
    Progress progress;

    for (std::int64_t position = 0; position < input.length();)
    {
        // A quotient, rounded once, equals a time that was written in decimals; a product of rate and time might not.
        const auto now = static_cast<double> (position) / input.sampleRate();

        for (; due != timed.end() && due->seconds <= now; ++due)
            module.set (due->assignment);

        const auto count = static_cast<int> (std::min<std::int64_t> (maximumBlock, input.length() - position));
        juce::AudioBuffer<float> block (memory.getArrayOfWritePointers(), 2, count);
        input.read (left, right, count);
        module.process (block);
        output.write (left, right, count);
        position += count;
        progress.show (position, input.length());
    }
}

/** No file that is written may be one that is read, or written otherwise. */
void checkPaths (const RenderOptions& options)
{
    if (isSameFile (options.input, options.output))
        throw Failure ("'" + options.output + "' is the input file, too");

    if (! options.saveState)
        return;

    if (isSameFile (*options.saveState, options.input))
        throw Failure ("'" + *options.saveState + "' is the input file, too");

    if (isSameFile (*options.saveState, options.output))
        throw Failure ("'" + *options.saveState + "' is the output file, too");
}

} // namespace

void run (const RenderOptions& options)
{
    checkPaths (options);

    HostedModule module (options.module);
    checkParameters (module, options);

    WavReader input (options.input);
    WavWriter output (options.output, input.sampleRate(), input.length());

    // The module is not told that this is faster than real time: the file holds what a listener would have heard.
    module.prepareStereo (input.sampleRate(), options.block);

    if (options.state)
        restoreStateFile (module, options.module, *options.state);

    if (options.program)
        module.selectProgram (*options.program);

    for (const auto& set : options.sets)
        module.set (set);

    renderAll (module, input, output, options.block, inOrderOfTime (options.timed));

    if (options.saveState)
        writeStateFile (*options.saveState, module.saveState());

    output.finish();
}

} // namespace kestreleq::host
