#pragma once

namespace kestreleq
{

/** Whether there is any text on the system's clipboard. Costs next to nothing and never waits for the program that
   holds it: reading may, since many programs make their text only then. On Linux true for whatever is held, as only the
   holder knows what it is. Message thread. */
bool isTextOnClipboard();

} // namespace kestreleq
