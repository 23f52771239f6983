#pragma once

#include "ui_pro/controls/footer/FooterReadout.h"

namespace quillon::ui_pro::controls
{

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

} // namespace quillon::ui_pro::controls
