#pragma once

#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

namespace quillon::ui_pro::primitives
{

/** The surface behind everything: a dark gradient with a soft glow above the middle and a fine grain. */
class RootBackground final : public SilentComponent
{
public:
    RootBackground();

    void paint (juce::Graphics& g) override;

private:
    CachedLayer layer;
};

} // namespace quillon::ui_pro::primitives
