#pragma once

#include "ui_pro/controls/footer/FooterReadout.h"

namespace quillon::ui_pro::controls
{

/** The footer's latency. */
class LatencyControl final : public FooterReadout
{
public:
    LatencyControl();

    /** In milliseconds; not finite or negative becomes 0, at most 999.9. */
    void setLatency (float newLatencyMs);

    float getLatency() const { return latencyMs; }

private:
    float latencyMs = 0.0f;
};

/** The footer's sample rate. */
class SampleRateControl final : public FooterReadout
{
public:
    SampleRateControl();

    /** In Hz; what is no rate becomes 48000, any other is kept within 1000 and 384000. */
    void setSampleRate (double newRate);

    double getSampleRate() const { return sampleRate; }

private:
    double sampleRate = 48000.0;
};

/** The footer's processor load. */
class CpuUsageControl final : public FooterReadout
{
public:
    CpuUsageControl();

    /** In percent; not finite or negative becomes 0, at most 999.9. */
    void setCpuLoad (float newPercent);

    float getCpuLoad() const { return percent; }

private:
    float percent = 0.0f;
};

} // namespace quillon::ui_pro::controls
