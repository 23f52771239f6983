#pragma once

#include "ui_pro/controls/footer/OversamplingControl.h"

#include <array>

namespace quillon::ui_pro::controls
{

/** The modes from the highest to the lowest, one per row. */
class OversamplingControl::Popup final : public juce::Component
{
public:
    explicit Popup (OversamplingControl& control);
    ~Popup() override;

    static int modeOfRow (int row) { return numModes - 1 - row; }

    juce::Button& getRow (int row) const;

    /** Stands above the control, or below it where there is no room, and within the parent. */
    void placeIn (juce::Component& parent);

    void paint (juce::Graphics& g) override;
    void resized() override;
    bool keyPressed (const juce::KeyPress& key) override;

private:
    class Row;

    OversamplingControl& owner;
    std::array<std::unique_ptr<Row>, numModes> rows;
};

} // namespace quillon::ui_pro::controls
