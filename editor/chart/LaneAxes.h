#pragma once

#include "ui_pro/controls/chart/ChartAxes.h"

namespace kestreleq
{

/** The axes of a lane's response within a view of some size, which leave the view's left and lower edge to the labels:
    20 Hz to 40 kHz, and -18 to +18 dB. */
quillon::ui_pro::controls::ChartAxes makeLaneAxes (int viewWidth, int viewHeight);

} // namespace kestreleq
