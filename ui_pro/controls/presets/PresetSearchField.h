#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace quillon::ui_pro::controls
{

/** The text field that the preset browser is searched with. Reports every edit at once, before the next key is
    handled. */
class PresetSearchField final : public juce::TextEditor
{
public:
    PresetSearchField();

    /** Offered every key before it edits the text; true when it is taken. May delete the field. */
    std::function<bool (const juce::KeyPress&)> onKey;

    /** Called with the text after an edit. */
    std::function<void (const juce::String&)> onEdit;

    bool keyPressed (const juce::KeyPress& key) override;
    void focusGained (FocusChangeType cause) override;
    void focusLost (FocusChangeType cause) override;
    void paint (juce::Graphics& g) override;

private:
    void reportEdit();
};

} // namespace quillon::ui_pro::controls
