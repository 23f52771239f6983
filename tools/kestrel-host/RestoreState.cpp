#include "tools/kestrel-host/RestoreState.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/StateFile.h"

namespace kestreleq::host
{
namespace
{

/** A module that cannot read a state ignores it without a word. Whether it did shows in an instance whose every
    parameter was moved to where no saved one will be: it is as before. */
bool isTaken (const std::string& modulePath, const juce::MemoryBlock& state)
{
    constexpr float nobodysValue = 0.387521f;

    HostedModule probe (modulePath);
    probe.prepareStereo (48000.0, 512);

    for (const auto& parameter : probe.parameters())
        probe.set ({ parameter.id, nobodysValue });

    const auto before = probe.saveState();
    probe.restoreState (state);
    return probe.saveState() != before;
}

} // namespace

void restoreStateFile (HostedModule& module, const std::string& modulePath, const std::string& path)
{
    const auto state = readStateFile (path);

    if (! isTaken (modulePath, state))
        throw Failure ("'" + path + "' holds no state of this module");

    module.restoreState (state);
}

} // namespace kestreleq::host
