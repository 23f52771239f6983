#include "editor/header/StateClipboard.h"

#include "editor/header/ClipboardText.h"
#include "engine/PluginState.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq
{
namespace
{

constexpr double lookInterval = 1000.0; // ms

} // namespace

StateClipboard::StateClipboard (KestrelProcessor& processorToCopy)
    : hasText (isTextOnClipboard),
      read ([] { return juce::SystemClipboard::getTextFromClipboard(); }),
      write ([] (const juce::String& text) { juce::SystemClipboard::copyTextToClipboard (text); }),
      processor (processorToCopy)
{
}

bool StateClipboard::canPaste()
{
    const auto now = juce::Time::getMillisecondCounterHiRes();

    if (lastLook < 0.0 || now - lastLook >= lookInterval)
    {
        lastLook = now;
        hadText = hasText();
    }

    return hadText;
}

bool StateClipboard::canPasteNow()
{
    lastLook = -1.0;
    return canPaste();
}

void StateClipboard::copy()
{
    const auto xml = processor.getCore().copyState().createXml();
    auto format = juce::XmlElement::TextFormat();
    format.newLineChars = "\r\n";
    write (xml->toString (format));
    lastLook = -1.0;
}

bool StateClipboard::paste()
{
    const auto state = readStateText (read());

    if (! state)
        return false;

    processor.applySnapshot ({ state->parameters, { processor.getCurrentProgram(), true } }, "Paste");
    return true;
}

} // namespace kestreleq
