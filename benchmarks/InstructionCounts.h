#pragma once

#include <string>

namespace kestreleq::speed
{

/** Runs every workload whose name begins so, and has callgrind, under which this must run, write a profile after each.
    A profile is labelled with the workload's name and the number of samples that it covers. False without callgrind. */
bool countInstructions (const std::string& beginning);

} // namespace kestreleq::speed
