#pragma once

#include "engine/dsp/Bands.h"
#include "engine/dsp/simd/EngineData.h"

#include <array>
#include <cstddef>

namespace kestreleq::dsp
{

/** The break stage of both lanes: the band-limited residue that a waveshaper leaves of each weighted band and of the
    air. Residue means the shaper's output less its present input, as it comes, without compensation of the shaper's
    delay.

    This class writes the stage's plan and moves its air gates; the simd forms process audio by the plan. */
class BreakProcessor
{
    static constexpr int gateRow = 4;

public:
    /** Room for the air gates' rows of one chunk. */
    struct alignas (32) GateRows
    {
        double values[gateRow * simd::chunkSize] = {};
    };

    /** Designs the filters for a sample rate in Hz and writes them and all else that is fixed. */
    void prepare (simd::EnginePlan& plan, double sampleRate);

    /** Clears shapers, filters and air gates. */
    void reset (simd::BreakMemory& memory);

    /** The same of one lane. */
    void resetLane (simd::BreakMemory& memory, std::size_t lane);

    /** Writes a lane's drives: the positive part up to 1 of its weights drives the shapers of the bands, the air amount
        that of the air. A bypassed lane stands still. */
    void setDrive (simd::EnginePlan& plan, std::size_t lane, const std::array<float, numBands>& weights,
        float airAmount, bool bypass);

    /** What the stage does in a chunk that starts now. The chunk's length is cut where an air gate starts or stops. The
        result refers to the rows. */
    simd::BreakChunk begin (
        const simd::EnginePlan& plan, simd::BreakMemory& memory, GateRows& gateRows, int& numSamples);

private:
    /** The air's way into the stage: opens and shuts linearly. */
    struct Gate
    {
        double value = 0.0;
        bool open = false;
        bool frozen = false;

        bool isMoving() const { return ! frozen && value != (open ? 1.0 : 0.0); }

        double next (double step) const;
    };

    void moveGates (simd::BreakChunk& chunk, double* gateRows, int& numSamples);

    std::array<Gate, numLanes> gates;
    double gateStep = 0.0;
    unsigned driven = 0;  // a bit for each chain with a drive
    unsigned ringing = 0; // and for each that may not be at rest
};

} // namespace kestreleq::dsp
