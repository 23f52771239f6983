#pragma once

#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

namespace quillon::ui_pro::layout
{

/** The strip below an editor, on which the editor places its read-outs. */
class FooterBar final : public primitives::SilentComponent
{
public:
    FooterBar();

    void paint (juce::Graphics& g) override;

private:
    primitives::CachedLayer layer;
};

} // namespace quillon::ui_pro::layout
