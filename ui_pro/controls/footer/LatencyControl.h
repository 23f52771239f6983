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

} // namespace quillon::ui_pro::controls
