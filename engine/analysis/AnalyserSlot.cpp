#include "engine/analysis/AnalyserSlot.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kestreleq::analysis
{
namespace
{

constexpr std::size_t framesInRing = 4;
constexpr float rise = 0.35f; // shares of the way per update
constexpr float fall = 0.08f;
constexpr float nearSilence = 0.01f; // dB

float smoothed (float previous, float target)
{
    const auto next = previous + (target - previous) * (target > previous ? rise : fall);
    return next - spectrumFloor <= nearSilence ? spectrumFloor : next;
}

} // namespace

void AnalyserSlot::prepare (double sampleRate, std::size_t frameLength, std::size_t newHop, std::size_t numPoints)
{
    ring.prepare (framesInRing * frameLength);
    frame.assign (frameLength, 0.0f);
    fill = 0;
    hop = newHop;

    // The display has its own ballistics.
    estimator.setWindow (Window::hann);
    estimator.setAveragingTime (0.0);
    estimator.setPeakHoldTime (0.0);
    estimator.prepare (sampleRate, frameLength);

    latest.assign (numPoints, spectrumFloor);
    display.assign (numPoints, spectrumFloor);
    dataPresent = false;
}

void AnalyserSlot::update (const DisplayMapping& mapping, bool shown)
{
    const auto analysed = drain();

    if (! shown)
    {
        for (auto& value : display)
            value = smoothed (value, spectrumFloor);

        return;
    }

    if (analysed)
    {
        mapping.map (estimator.spectrum(), latest);
        dataPresent = true;
    }

    if (dataPresent)
        std::transform (display.begin(), display.end(), latest.begin(), display.begin(), smoothed);
}

/** A frame is complete as soon as the buffer is full: the hop is at most N, so one hop at least has gone by then. */
bool AnalyserSlot::drain()
{
    const auto length = frame.size();
    auto waiting = ring.available(); // once, so that a fast producer cannot keep this going
    const auto total = fill + waiting;

    if (total >= length && ! estimator.needsEveryFrame())
    {
        const auto outdated = (total - length) / hop * hop;
        waiting -= outdated - std::min (outdated, fill);
        dropOldest (outdated);
    }

    bool analysed = false;

    while (waiting > 0)
    {
        const auto count = std::min (waiting, length - fill);
        ring.read (frame.data() + fill, count);
        waiting -= count;
        fill += count;

        if (fill == length)
        {
            estimator.analyse (frame);
            analysed = true;
            dropOldest (hop);
        }
    }

    return analysed;
}

/** From the frame first, then from the ring. */
void AnalyserSlot::dropOldest (std::size_t count)
{
    const auto fromFrame = std::min (count, fill);
    fill -= fromFrame;
    std::memmove (frame.data(), frame.data() + fromFrame, fill * sizeof (float));
    ring.skip (count - fromFrame);
}

void AnalyserSlot::clear()
{
    ring.skip (ring.available());
    fill = 0;

    if (std::exchange (dataPresent, false)) // else the curve is at the floor
        std::fill (display.begin(), display.end(), spectrumFloor);
}

} // namespace kestreleq::analysis
