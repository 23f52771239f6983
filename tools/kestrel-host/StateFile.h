#pragma once

#include <juce_core/juce_core.h>

#include <string>

namespace kestreleq::host
{

/** A file's whole content. Throws Failure if it cannot be read or is empty. */
juce::MemoryBlock readStateFile (const std::string& path);

/** Replaces the file. Throws Failure. */
void writeStateFile (const std::string& path, const juce::MemoryBlock& state);

} // namespace kestreleq::host
