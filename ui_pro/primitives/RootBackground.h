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

    /** Parts that need not be painted, because something opaque stands in front of them. The framework finds that out
       by itself only where nothing is scaled. */
    void setCovered (juce::RectangleList<int> areas) { covered = std::move (areas); }

    void paint (juce::Graphics& g) override;

private:
    juce::RectangleList<int> covered;
    CachedLayer layer { CachedLayer::Picture::covering };
};

} // namespace quillon::ui_pro::primitives
