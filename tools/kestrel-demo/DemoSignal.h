#pragma once

#include <array>
#include <vector>

namespace kestreleq::demo
{

/** Ten seconds of a small piece of music in left and right, the same each time: kick, bass, chords and hi-hat, which
    between them reach from 30 Hz to beyond 15 kHz. Peaks below 0.5. Sample rate in Hz. */
std::array<std::vector<float>, 2> makeDemoSignal (double sampleRate);

} // namespace kestreleq::demo
