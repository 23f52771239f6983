#include "tools/kestrel-host/StateFile.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/Paths.h"

namespace kestreleq::host
{

juce::MemoryBlock readStateFile (const std::string& path)
{
    constexpr int largest = 16 << 20; // bytes, far beyond any module's state: a path may lead to an endless device
    juce::MemoryBlock content;
    juce::FileInputStream file (fileAt (path));

    if (! file.openedOk() || file.readIntoMemoryBlock (content, largest + 1) == 0 ||
        content.getSize() > static_cast<std::size_t> (largest))
        throw Failure ("cannot read a state from '" + path + "'");

    return content;
}

void writeStateFile (const std::string& path, const juce::MemoryBlock& state)
{
    const auto file = fileAt (path);

    if (file.isDirectory() || ! file.replaceWithData (state.getData(), state.getSize()))
        throw Failure ("cannot write the state to '" + path + "'");
}

} // namespace kestreleq::host
