#include "tools/kestrel-host/StateFile.h"

#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/Paths.h"

namespace kestreleq::host
{

juce::MemoryBlock readStateFile (const std::string& path)
{
    juce::MemoryBlock content;

    if (! fileAt (path).loadFileAsData (content) || content.isEmpty())
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
