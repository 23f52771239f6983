#pragma once

#include "engine/analysis/AnalyserSlot.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>

namespace kestreleq::analysis
{

/** The live spectra of one lane: slot 0 what goes into the engine, slot 1 what comes out. The audio thread pushes
    samples and never waits; whoever asks for a curve does the analysis. Off at the start, with both slots on.

    Threads: push and prepare must not overlap (a host never prepares while it processes). Everything else may be called
    from any thread but the audio thread, prepare included: those calls exclude each other. */
class SpectrumAnalyser
{
public:
    static constexpr std::size_t numSlots = 2;

    /** Starts from silence and keeps the switches. Sizes all buffers if the analyser is on; else it gives back their
        memory until it is switched on.
        @param newSampleRate  in Hz; not finite or at most 40: returns false and stays unprepared
        @param frameLength    of the FFT in samples, 0 for 4096; rounded up to a power of two within 256..65536
        @param hop            samples from one frame to the next, 0 for a quarter of the frame; within 1..frame length
        @param numPoints      display points, within 64..2048 */
    bool prepare (double newSampleRate, std::size_t frameLength, std::size_t hop, std::size_t numPoints);

    /** Takes samples for a slot; what the slot has no room for is dropped, the newest first. Does nothing unless
        prepared and both the analyser and the slot are on. Audio thread; neither locks nor allocates. */
    void push (std::size_t slot, const float* samples, int numSamples);

    /** Analyses what was pushed since the last update and moves every display curve one step of its smoothing. While
        off, the curves stand still. */
    void update();

    /** Updates, then copies the slot's display curve, in dB per point: point i of P stands at
        20 Hz * (sample rate / 40 Hz)^((i + 0.5) / P). Where there is no such point or slot, -120. */
    void readCurve (std::size_t slot, std::span<float> destination);

    /** Copies the slot's display curve as the last update left it; else as readCurve. */
    void copyCurve (std::size_t slot, std::span<float> destination) const;

    /** Drops the samples that wait for analysis; the next frame holds only later ones. The curves stay. */
    void clear();

    /** While off, push and update do nothing. Samples from before are dropped when it goes on again. Sizes the buffers
        when it goes on for the first time since prepare, with pushes going on meanwhile. */
    void setOn (bool shouldBeOn);

    bool isOn() const { return on.load (std::memory_order_relaxed); }

    /** A slot that is off takes no samples, and its curve falls to silence. No such slot: ignored. */
    void setSlotOn (std::size_t slot, bool shouldBeOn);

    /** Bit s tells whether slot s was on at the last update. */
    std::uint32_t slotMask() const { return mask.load (std::memory_order_relaxed); }

    /** True once a frame of the slot was analysed since prepare. */
    bool hasData (std::size_t slot) const;

    /** The number of display points; 0 unless prepared. */
    std::size_t numPoints() const;

    /** In Hz; 0 unless prepared. */
    double sampleRate() const;

private:
    /** What it takes to show something. */
    struct Curves
    {
        std::array<AnalyserSlot, numSlots> slots;
        DisplayMapping mapping;
    };

    void makeCurves();
    void updateSlots();

    double rate = 0.0; // of the last prepare, as the next three; 0 if it failed
    std::size_t length = 0;
    std::size_t hopLength = 0;
    std::size_t points = 0;
    std::unique_ptr<Curves> curves; // none until they are needed
    mutable std::mutex mutex;       // around all of the above, except for the pushes

    std::atomic<Curves*> open { nullptr }; // what the pushes go to
    std::atomic<bool> on { false };
    std::array<std::atomic<bool>, numSlots> slotOn { true, true };
    std::atomic<std::uint32_t> mask { 0 };
};

} // namespace kestreleq::analysis
