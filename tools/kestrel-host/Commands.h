#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kestreleq::host
{

/** One parameter, named by the plug-in's own ID, and its normalised value, 0 to 1. */
struct Assignment
{
    std::string id;
    float value = 0.0f;
};

/** An assignment that waits for the first block that starts at or after `seconds`. */
struct TimedAssignment
{
    double seconds = 0.0;
    Assignment assignment;
};

struct InfoOptions
{
    std::string module;
    bool json = false;
    bool texts = false; // in the JSON, every parameter's texts over its range
};

struct RenderOptions
{
    std::string module;
    std::string input;
    std::string output;
    int block = 512;
    std::optional<int> program;
    std::vector<Assignment> sets;
    std::vector<TimedAssignment> timed;
    std::optional<std::string> state;     // file to restore before anything else
    std::optional<std::string> saveState; // file for the state at the end
};

struct BenchOptions
{
    std::string module;
    double rate = 48000.0;
    int block = 512;
    double seconds = 10.0;
    std::vector<Assignment> sets;
    bool json = false;
};

struct OpenOptions
{
    std::string module;
    std::optional<double> seconds;        // until the window is closed, unless given
    std::optional<std::string> state;     // file to restore before the editor opens
    std::optional<std::string> saveState; // file for the state after it has closed
};

/** Prints what the module says of itself. Each command runs on the message thread and throws Failure. */
void run (const InfoOptions& options);

/** Renders a WAV file through the module. On failure the output path is as it was before. */
void run (const RenderOptions& options);

/** Measures the time that the module takes per stereo sample, on noise. */
void run (const BenchOptions& options);

/** Shows the module's editor in a window, while the module plays silence. */
void run (const OpenOptions& options);

} // namespace kestreleq::host
