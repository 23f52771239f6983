#include "ui_pro/style/Fonts.h"

namespace quillon::ui_pro::style
{

juce::Font boldFont (float size)
{
    return juce::Font (juce::FontOptions (size).withStyle ("Bold"));
}

juce::Font regularFont (float size)
{
    return juce::Font (juce::FontOptions (size).withStyle ("Regular"));
}

} // namespace quillon::ui_pro::style
