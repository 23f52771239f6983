#pragma once

#include <string>
#include <vector>

namespace kestreleq::demo
{

/** A WAV file and what its row is called. */
struct NamedFile
{
    std::string name;
    std::string path;
};

/** The levels of the first file, then those of the others with their change against it: peak, RMS, and the RMS in six
    bands, all in dB over both channels. Throws host::Failure for a file that cannot be read. */
std::string levelTable (const std::vector<NamedFile>& files);

} // namespace kestreleq::demo
