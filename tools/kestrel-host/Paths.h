#pragma once

#include <juce_core/juce_core.h>

#include <string>

namespace kestreleq::host
{

/** The file at a path from the command line, which may be relative to the working directory. */
inline juce::File fileAt (const std::string& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (path.c_str()));
}

} // namespace kestreleq::host
