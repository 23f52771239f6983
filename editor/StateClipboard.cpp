#include "editor/StateClipboard.h"

#include "engine/PluginState.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq
{

StateClipboard::StateClipboard (KestrelProcessor& processorToCopy)
    : read ([] { return juce::SystemClipboard::getTextFromClipboard(); }),
      write ([] (const juce::String& text) { juce::SystemClipboard::copyTextToClipboard (text); }),
      processor (processorToCopy)
{
}

void StateClipboard::copy() const
{
    const auto xml = processor.getCore().copyState().createXml();
    auto format = juce::XmlElement::TextFormat();
    format.newLineChars = "\r\n";
    write (xml->toString (format));
}

bool StateClipboard::paste()
{
    const auto state = readStateText (read());

    if (! state)
        return false;

    processor.applySnapshot (state->parameters, "Paste");
    return true;
}

} // namespace kestreleq
