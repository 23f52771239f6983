#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace kestreleq::analysis
{

/** Puts the bins of a spectrum onto display points that are spaced evenly in octaves from 20 Hz to half the sample
    rate. Where points are denser than bins it interpolates, elsewhere a point shows its greatest bin. */
class DisplayMapping
{
public:
    /** Sample rate in Hz, above 40; frame length in samples; at least one point. Allocates. */
    void prepare (double sampleRate, std::size_t frameLength, std::size_t numPoints);

    std::size_t numPoints() const { return points.size(); }

    /** Levels in dB: frame length / 2 + 1 bins to as many values as there are points. */
    void map (std::span<const float> spectrum, std::span<float> curve) const;

private:
    struct Point
    {
        std::size_t first, end; // bins; when interpolating, end is the upper neighbour itself
        float fraction;         // of the upper neighbour
        bool interpolated;
    };

    std::vector<Point> points;
};

} // namespace kestreleq::analysis
