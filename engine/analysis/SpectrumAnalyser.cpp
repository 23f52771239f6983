#include "engine/analysis/SpectrumAnalyser.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace kestreleq::analysis
{
namespace
{

constexpr double leastSampleRate = 40.0; // Hz; at and below it there is nothing to show above 20 Hz
constexpr std::size_t defaultFrameLength = 4096;
constexpr std::size_t leastFrameLength = 256;
constexpr std::size_t greatestFrameLength = 65536;
constexpr std::size_t leastNumPoints = 64;
constexpr std::size_t greatestNumPoints = 2048;

} // namespace

bool SpectrumAnalyser::prepare (
    double newSampleRate, std::size_t frameLength, std::size_t hop, std::size_t numDisplayPoints)
{
    const std::scoped_lock lock (mutex);
    open = nullptr;
    curves = nullptr;
    rate = 0.0;

    if (! std::isfinite (newSampleRate) || newSampleRate <= leastSampleRate)
        return false;

    const auto wanted = frameLength == 0 ? defaultFrameLength : std::min (frameLength, greatestFrameLength);
    length = std::max (std::bit_ceil (wanted), leastFrameLength);
    hopLength = std::clamp (hop == 0 ? length / 4 : hop, std::size_t { 1 }, length);
    points = std::clamp (numDisplayPoints, leastNumPoints, greatestNumPoints);
    rate = newSampleRate;

    if (isOn())
        makeCurves();

    return true;
}

void SpectrumAnalyser::makeCurves()
{
    curves = std::make_unique<Curves>();
    curves->mapping.prepare (rate, length, points);

    for (auto& slot : curves->slots)
        slot.prepare (rate, length, hopLength, points);

    open.store (curves.get(), std::memory_order_release);
}

void SpectrumAnalyser::push (std::size_t slot, const float* samples, int numSamples)
{
    auto* const target = open.load (std::memory_order_acquire);

    if (! isOn() || slot >= numSlots || ! slotOn[slot].load (std::memory_order_relaxed) || target == nullptr ||
        samples == nullptr || numSamples <= 0)
        return;

    target->slots[slot].push (samples, static_cast<std::size_t> (numSamples));
}

void SpectrumAnalyser::update()
{
    const std::scoped_lock lock (mutex);
    updateSlots();
}

void SpectrumAnalyser::updateSlots()
{
    if (curves == nullptr || ! isOn())
        return;

    std::uint32_t flags = 0;

    for (std::size_t i = 0; i < numSlots; ++i)
    {
        const auto shown = slotOn[i].load (std::memory_order_relaxed);
        flags |= (shown ? 1u : 0u) << i;
        curves->slots[i].update (curves->mapping, shown);
    }

    mask.store (flags, std::memory_order_relaxed);
}

void SpectrumAnalyser::readCurve (std::size_t slot, std::span<float> destination)
{
    update();
    copyCurve (slot, destination);
}

void SpectrumAnalyser::copyCurve (std::size_t slot, std::span<float> destination) const
{
    const std::scoped_lock lock (mutex);
    std::fill (destination.begin(), destination.end(), spectrumFloor);

    if (curves == nullptr || slot >= numSlots)
        return;

    const auto curve = curves->slots[slot].curve();
    std::copy_n (curve.begin(), std::min (curve.size(), destination.size()), destination.begin());
}

void SpectrumAnalyser::clear()
{
    const std::scoped_lock lock (mutex);

    if (curves != nullptr)
        for (auto& slot : curves->slots)
            slot.clear();
}

void SpectrumAnalyser::setOn (bool shouldBeOn)
{
    const std::scoped_lock lock (mutex);

    if (shouldBeOn && curves == nullptr && rate > 0.0)
        makeCurves();

    // A frame must not join samples from before and after the pause.
    if (shouldBeOn && ! isOn() && curves != nullptr)
        for (auto& slot : curves->slots)
            slot.clear();

    on.store (shouldBeOn, std::memory_order_relaxed);
}

void SpectrumAnalyser::setSlotOn (std::size_t slot, bool shouldBeOn)
{
    if (slot < numSlots)
        slotOn[slot].store (shouldBeOn, std::memory_order_relaxed);
}

bool SpectrumAnalyser::hasData (std::size_t slot) const
{
    const std::scoped_lock lock (mutex);
    return curves != nullptr && slot < numSlots && curves->slots[slot].hasData();
}

std::size_t SpectrumAnalyser::numPoints() const
{
    const std::scoped_lock lock (mutex);
    return rate > 0.0 ? points : 0;
}

double SpectrumAnalyser::sampleRate() const
{
    const std::scoped_lock lock (mutex);
    return rate;
}

} // namespace kestreleq::analysis
