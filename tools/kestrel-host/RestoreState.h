#pragma once

#include "tools/kestrel-host/HostedModule.h"

#include <string>

namespace kestreleq::host
{

/** Restores a prepared module, which was loaded from modulePath, from a file that holds a state of its component.
    Throws Failure if the file cannot be read or the module does not take its content for a state. */
void restoreStateFile (HostedModule& module, const std::string& modulePath, const std::string& path);

} // namespace kestreleq::host
