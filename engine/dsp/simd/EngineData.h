#pragma once

// What the forms of the engine's inner loop read and write: plain arrays and nothing else. This header is compiled for
// several instruction sets, so it must not bring along any inline function that the linker could share between them.

namespace kestreleq::dsp::simd
{

/** The most samples that a form takes at once. */
inline constexpr int chunkSize = 64;

/** The chains of both lanes side by side: five bands and the air, lane A and lane B of each next to each other. */
inline constexpr int numChains = 12;
inline constexpr int firstAirChain = 10;

/** High-pass, low-pass and, for the air alone, one more. */
inline constexpr int numBreakStages = 3;

/** Second-order sections side by side. With the states s1 and s2 of transposed direct form II, for an input x:

        y = direct x + s1
        next s1 = toFirst x + s2 - feedback1 s1
        next s2 = toSecond x + antiDenormal - feedback2 s1

    which is that form with y put in: one multiplication less, and a shorter way from one sample to the next. The
    anti-denormal constant is left out while x and both states are exactly 0. */
template <unsigned count>
struct alignas (32) SectionSet
{
    double direct[count];
    double toFirst[count];
    double toSecond[count];
    double feedback1[count];
    double feedback2[count];
    double antiDenormal[count]; // 0 where there is no section and the input passes through
};

template <unsigned count>
struct alignas (32) SectionMemory
{
    double first[count];
    double second[count];
};

/** What the engine is to do; changes between blocks only. A bypassed lane is written as one that passes through. */
struct alignas (32) EnginePlan
{
    SectionSet<numChains> tone; // the air with its pre-gain

    // A chain adds weightedDirect x + weight s1 to the dry signal; that is also what its break stage shapes.
    double weight[numChains];
    double weightedDirect[numChains];
    double direct[2]; // the dry signal and all of weightedDirect

    SectionSet<2> output;
    double inputGain[2];
    double outputGain[2]; // trim included

    double drive[numChains];
    double square[numChains]; // the shapers' coefficients
    double cube[numChains];
    double fourth[numChains];
    SectionSet<numChains> breakStages[numBreakStages]; // the last of a chain mixes it in

    bool midSide;
    bool bypass[2];
};

/** What the tone banks and the output filters remember. */
struct alignas (32) ToneMemory
{
    SectionMemory<numChains> bank;
    SectionMemory<2> output;
};

/** What the break stage remembers. */
struct alignas (32) BreakMemory
{
    double shaped1[numChains]; // the shapers' last inputs
    double shaped2[numChains];
    SectionMemory<numChains> stages[numBreakStages];
};

/** All that the engine remembers from sample to sample. */
struct EngineState
{
    ToneMemory tone;
    BreakMemory breaking;
};

/** The break stage's part in a chunk. Bit i of a mask stands for chain i. */
struct BreakChunk
{
    unsigned running;   // chains with something to add: driven, or still ringing; the air while its gate is not shut
    unsigned shaping;   // those of them whose shaper has an input, or had one
    const double* gate; // rows of four: 1, 1, and the air gate of either lane
    int gateStride;     // from one sample's row to the next; 0 when it stands still
};

/** Sums over a block. */
struct PowerSums
{
    double first;   // of the squares of the left channel, or of mid
    double second;  // of the right channel, or of side
    double product; // of left times right
};

} // namespace kestreleq::dsp::simd
