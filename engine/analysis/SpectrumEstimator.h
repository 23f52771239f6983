#pragma once

#include "engine/analysis/RealFft.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kestreleq::analysis
{

/** Level of silence in a spectrum, and the lowest that there is, in dB. */
inline constexpr float spectrumFloor = -120.0f;

enum class Window
{
    rectangular,
    hann,
    blackmanHarris // four terms, minimum side lobes
};

/** The spectrum of one frame of samples after another, in dB of a full-scale sine, limited to -120..0, with an average
    and held peaks beside it. Not thread-safe; only prepare allocates. */
class SpectrumEstimator
{
public:
    /** Sample rate in Hz, above 0; N, the frame length in samples, is a power of two, 8 or more. All three spectra
        start at -120 dB; the settings below stay as they are. */
    void prepare (double newSampleRate, std::size_t newFrameLength);

    void setWindow (Window newWindow);

    /** Time constant of the average in ms; 0 or less turns it off. 50 at the start, and when not finite. */
    void setAveragingTime (double milliseconds);

    /** How long a peak stays in ms, limited to 0..5000; 0 turns the peaks off. 1000 at the start, and when not finite.
     */
    void setPeakHoldTime (double milliseconds);

    /** How fast a peak falls after that in dB per second, 0 or more. 20 at the start, and when not finite. */
    void setPeakDecay (double decibelsPerSecond);

    /** True while average or peaks are on. Otherwise a frame leaves nothing behind that the next does not replace. */
    bool needsEveryFrame() const { return averagingTime > 0.0 || holdTime > 0.0; }

    /** Analyses one frame of N samples (any other length is ignored); a sample that is not finite counts as 0. */
    void analyse (std::span<const float> frame);

    /** The last frame's spectrum: N / 2 + 1 bins, bin k at k * sample rate / N. */
    std::span<const float> spectrum() const { return current; }

    /** The average of the frames' levels in dB; the current spectrum while averaging is off. */
    std::span<const float> averagedSpectrum() const { return averaged; }

    /** The held peaks; the current spectrum while they are off. */
    std::span<const float> peakSpectrum() const { return peaks; }

private:
    void fetchWindow();
    void updateAverage();
    void updatePeaks();

    double framesPerSecond() const { return sampleRate / static_cast<double> (frameLength); }

    double sampleRate = 48000.0;
    std::size_t frameLength = 0;
    Window window = Window::hann;
    double averagingTime = 50.0;
    double holdTime = 1000.0;
    double peakDecay = 20.0;

    struct WindowTable;

    RealFft fft;
    std::shared_ptr<const WindowTable> windowTable; // of N coefficients
    std::vector<float> current;
    std::vector<float> averaged;
    std::vector<float> peaks;
    std::vector<std::uint32_t> heldFrames; // per bin, since its peak was reached
};

} // namespace kestreleq::analysis
