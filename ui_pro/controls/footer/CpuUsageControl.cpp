#include "ui_pro/controls/footer/CpuUsageControl.h"

#include "ui_pro/style/Theme.h"

namespace quillon::ui_pro::controls
{
namespace
{

juce::String textOf (float percent)
{
    return juce::String (percent, 1) + "%";
}

} // namespace

CpuUsageControl::CpuUsageControl()
    : FooterReadout ("CPU:", textOf (0.0f), style::Theme::get().footer.cpuUsage)
{
}

void CpuUsageControl::setCpuLoad (float newPercent)
{
    percent = sanitisedFigure (newPercent);
    showText (textOf (percent));
}

} // namespace quillon::ui_pro::controls
