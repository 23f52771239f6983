#pragma once

#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

namespace quillon::ui_pro::primitives
{

/** The rounded surface behind a group of controls, with an optional engraved vertical divider. */
class SidePanel final : public SilentComponent
{
public:
    SidePanel();

    /** Lengths in the panel's coordinates; none is drawn while x is negative or the divider has no height. */
    void setDivider (int x, int top, int bottom);

    void paint (juce::Graphics& g) override;

private:
    void paintPanel (juce::Graphics& g) const;

    int dividerX = -1;
    int dividerTop = 0;
    int dividerBottom = 0;
    CachedLayer layer;
};

} // namespace quillon::ui_pro::primitives
