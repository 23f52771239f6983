#pragma once

#include "engine/HarmlessXml.h"

#include <juce_core/juce_core.h>

#include <optional>
#include <string_view>

namespace kestreleq::test
{

/*  What a text holds, written down in one form by each of its two readers, so that one can be held against the other.
    Spaces are left out: where there is nothing else between two tags, the framework keeps none. */

inline juce::String spaceless (const juce::String& text)
{
    juce::String result;

    for (auto c : text)
        if (! juce::CharacterFunctions::isWhitespace (c))
            result << c;

    return result;
}

inline void describe (const juce::XmlElement& xml, juce::String& structure)
{
    if (xml.isTextElement())
    {
        structure << spaceless (xml.getText());
        return;
    }

    structure << "<" << xml.getTagName();

    for (int i = 0; i < xml.getNumAttributes(); ++i)
        structure << "\n" << xml.getAttributeName (i) << "=" << xml.getAttributeValue (i);

    structure << "\n>";

    for (const auto* child : xml.getChildIterator())
        describe (*child, structure);

    structure << "\n/";
}

/** As the framework's parser reads it; "nothing" if it reads none. Only for text that is harmless. */
inline juce::String structureByParser (std::string_view text)
{
    const auto xml = juce::parseXML (juce::String::fromUTF8 (text.data(), static_cast<int> (text.size())));
    juce::String structure;

    if (xml == nullptr)
        return "nothing";

    describe (*xml, structure);
    return structure;
}

/** As the scanner reads it; nothing if it refuses it. */
inline std::optional<juce::String> structureByScanner (std::string_view text)
{
    struct Writer final : XmlListener
    {
        void elementBegan (std::string_view name) override
        {
            endTag();
            structure << "<" << string (name);
            inTag = true;
        }

        void attribute (std::string_view name, std::string_view value) override
        {
            structure << "\n" << string (name) << "=" << resolved (value);
        }

        void characters (std::string_view characters) override
        {
            endTag();
            structure << spaceless (resolved (characters));
        }

        void elementEnded() override
        {
            endTag();
            structure << "\n/";
        }

        void endTag()
        {
            structure << (inTag ? "\n>" : "");
            inTag = false;
        }

        static juce::String string (std::string_view text)
        {
            return juce::String::fromUTF8 (text.data(), static_cast<int> (text.size()));
        }

        static juce::String resolved (std::string_view text)
        {
            auto result = string (text.substr (0, text.find ('&')));

            for (auto at = text.find ('&'); at != std::string_view::npos; at = text.find ('&', at + 1))
            {
                const auto end = text.find (';', at);
                const auto next = std::min (text.find ('&', at + 1), text.size());
                const auto name = string (text.substr (at + 1, end - at - 1));

                if (name.startsWith ("#x"))
                    result << static_cast<juce::juce_wchar> (name.substring (2).getHexValue32());
                else if (name.startsWith ("#"))
                    result << static_cast<juce::juce_wchar> (name.substring (1).getIntValue());
                else
                    result << juce::StringArray { "&", "<", ">", "\"",
                        "'" }[juce::StringArray { "amp", "lt", "gt", "quot", "apos" }.indexOf (name)];

                result << string (text.substr (end + 1, next - end - 1));
            }

            return result;
        }

        juce::String structure;
        bool inTag = false;
    };

    Writer writer;
    return isHarmlessXml (text, &writer) ? std::optional (writer.structure) : std::nullopt;
}

} // namespace kestreleq::test
