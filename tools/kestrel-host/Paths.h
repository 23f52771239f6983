#pragma once

#include <juce_core/juce_core.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace kestreleq::host
{

/** The same file by a path that Windows takes whatever its length: without this prefix it takes 259 characters. */
inline juce::File withoutLimit (const juce::File& file)
{
#ifdef _WIN32
    // What lies beside or within it, a temporary file or a module's binary, has a longer path.
    constexpr int longest = 190;
    const auto path = file.getFullPathName();

    if (path.length() > longest && ! path.startsWith (R"(\\?\)"))
        return juce::File (path.startsWith (R"(\\)") ? R"(\\?\UNC)" + path.substring (1) : R"(\\?\)" + path);
#endif
    return file;
}

/** The file at a path from the command line, which may be relative to the working directory. */
inline juce::File fileAt (const std::string& path)
{
    return withoutLimit (juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (path.c_str())));
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
    const auto first = fileAt (a);
    const auto second = fileAt (b);

    if (first == second)
        return true;

#ifdef _WIN32 // where the standard library knows no long paths
    const auto identifier = first.getFileIdentifier();
    return identifier != 0 && identifier == second.getFileIdentifier();
#else
    std::error_code error;
    return std::filesystem::equivalent (standardPath (first), standardPath (second), error) && ! error;
#endif
}

} // namespace kestreleq::host
