#pragma once

#include "engine/dsp/simd/Kernels.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace kestreleq::speed
{

/** What the audio path can be asked to do. */
enum class Task
{
    engineClean,
    engineMidSide,
    engineBreakIdle,   // on, but nothing drives it
    engineBreakDriven, // every band and the air
    engineFade,        // clean, and new values at every block, so that it is always on the way to them
    processBlock,      // the whole processor with its meters, analysers off
    automated          // the same, a host automating every continuous parameter in every block
};

inline constexpr std::array tasks { Task::engineClean, Task::engineMidSide, Task::engineBreakIdle,
    Task::engineBreakDriven, Task::engineFade, Task::processBlock, Task::automated };
inline constexpr std::array forms { dsp::simd::InstructionSet::scalar, dsp::simd::InstructionSet::sse2,
    dsp::simd::InstructionSet::avx2 };
inline constexpr std::array rates { 48000, 192000 };
inline constexpr std::array blocks { 32, 64, 512, 4096 };

const char* nameOf (Task task);
const char* nameOf (dsp::simd::InstructionSet form);

/** What a measurement goes by: "engine clean, AVX2, 48000 Hz, 64". */
std::string keyOf (const std::string& work, const std::string& form, int rate, int block);

/** Processes a block of both channels in place. */
using Process = std::function<void (float* left, float* right, int numSamples)>;

/** A task ready to run, in one form of the inner loops, at a sample rate in Hz. */
Process makeWorkload (Task task, dsp::simd::InstructionSet form, int rate, int block);

/** Nothing but what every run has in common: fresh noise is copied to where the block is processed. */
Process makeCopy();

/** Noise, block by block, into and through a process. */
class NoiseRun
{
public:
    NoiseRun (Process processToRun, int blockSize);

    /** So many samples of both channels, rounded up to whole blocks of which there are at least one. */
    void run (int numSamples);

    /** What run makes of a number of samples. */
    int rounded (int numSamples) const;

private:
    Process process;
    int block;
    std::array<std::vector<float>, 2> noise;
    std::array<std::vector<float>, 2> buffer;
};

} // namespace kestreleq::speed
