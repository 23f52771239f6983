#pragma once

#include "ui_pro/controls/buttons/OnOffButton.h"
#include "ui_pro/controls/panels/LaneModeSelector.h"
#include "ui_pro/primitives/RoleComponent.h"
#include "ui_pro/primitives/SidePanel.h"

#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** One strip per lane, of equal heights from top to bottom: its channel mode and whether it is enabled. */
class LaneStackPanel final : public primitives::SilentComponent
{
public:
    LaneStackPanel (juce::Colour primary, int numLanes);

    int getNumLanes() const { return static_cast<int> (strips.size()); }

    LaneModeSelector& getModeSelector (int lane) { return strips[static_cast<std::size_t> (lane)]->mode; }

    OnOffButton& getEnableButton (int lane) { return strips[static_cast<std::size_t> (lane)]->enabled; }

    void resized() override;

private:
    struct Strip final : juce::Component
    {
        Strip (juce::Colour primary, int number);
        void resized() override;

        primitives::SidePanel surface;
        LaneModeSelector mode;
        OnOffButton enabled;
    };

    std::vector<std::unique_ptr<Strip>> strips;
};

} // namespace quillon::ui_pro::controls
