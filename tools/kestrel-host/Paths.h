#pragma once

#include <juce_core/juce_core.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace kestreleq::host
{

/** The file at a path from the command line, which may be relative to the working directory. */
inline juce::File fileAt (const std::string& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (path.c_str()));
}

/** A file's path for the standard library, which on Windows takes a narrow text for one in the machine's code page. */
inline std::filesystem::path standardPath (const juce::File& file)
{
    const auto path = file.getFullPathName().toStdString();
    return std::u8string (path.begin(), path.end());
}

/** Whether both paths lead to one file, through links, too, and whether it exists yet or not. */
inline bool isSameFile (const std::string& a, const std::string& b)
{
    const auto first = standardPath (fileAt (a));
    const auto second = standardPath (fileAt (b));
    std::error_code error;
    return first == second || (std::filesystem::equivalent (first, second, error) && ! error);
}

} // namespace kestreleq::host
