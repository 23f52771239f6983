#pragma once

#include "ui_pro/controls/footer/FooterReadout.h"

namespace quillon::ui_pro::controls
{

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
