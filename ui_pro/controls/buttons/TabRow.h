#pragma once

#include "ui_pro/primitives/RoleComponent.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <vector>

namespace quillon::ui_pro::controls
{

/** A row of tabs of which one is chosen. Message thread. */
class TabRow final : public primitives::SilentComponent
{
public:
    explicit TabRow (const juce::StringArray& captions);
    ~TabRow() override;

    /** Chooses a tab without calling onChange; ignores an index that is none. */
    void setCurrent (int index);

    int getCurrent() const { return current; }

    juce::Button& getTab (int index) const;

    /** Runs when the user has chosen another tab. */
    std::function<void (int)> onChange;

    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    class Tab;

    std::vector<std::unique_ptr<Tab>> tabs;
    int current = 0;
};

} // namespace quillon::ui_pro::controls
