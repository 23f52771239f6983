#pragma once

#include <cstdint>
#include <limits>

namespace quillon::ui::strips
{

/** What a footer shows of a running effect. The defaults stand for "unknown". */
struct FooterTelemetry
{
    float cpuPercent = std::numeric_limits<float>::quiet_NaN();
    std::int32_t latencySamples = -1;
    std::int32_t oversamplingFactor = -1;
    double sampleRate = 0.0; // Hz
};

/** Whoever can tell it: the processor. Message thread. */
class FooterTelemetrySource
{
public:
    virtual ~FooterTelemetrySource() = default;

    virtual FooterTelemetry getFooterTelemetry() const = 0;
};

} // namespace quillon::ui::strips
