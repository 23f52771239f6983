#pragma once

#include <map>
#include <string>

namespace kestreleq::speed
{

/** Figures by their key (see keyOf). */
using Figures = std::map<std::string, double>;

/** Lines of a key, a tab and a figure. */
Figures readFigures (const std::string& path);

/** Times every workload and prints the table, in Markdown: nanoseconds and instructions per stereo sample in each form.
    Counts come from scripts/bench, as do the times of the built module. */
void printTable (const Figures& counts, const Figures& moduleTimes);

/** What silence costs after loud audio, while all filters die away, against noise. */
void printSilence();

/** What many instances cost to run. */
void printInstances();

} // namespace kestreleq::speed
