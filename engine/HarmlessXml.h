#pragma once

#include <string_view>

namespace kestreleq
{

/** Told what XML text holds, in the text's order. References in values and text are not resolved. */
class XmlListener
{
public:
    virtual ~XmlListener() = default;

    virtual void elementBegan (std::string_view name) = 0;
    virtual void attribute (std::string_view name, std::string_view value) = 0;
    virtual void characters (std::string_view text) = 0;
    virtual void elementEnded() = 0;
};

/** Whether XML may be handed to the framework's parser, which recurses without limit, forgives much and, where it does,
    may read on past the text's end. What passes is at most 64 KiB of valid UTF-8 and a small part of XML that has but
   one reading: a header perhaps, then one element of properly nested ones, at most 8 deep, with attributes and text.
   Names are letters, digits, '_', '-' and '.'; references are the five named ones and those to a legal character. No
   comment, declaration, instruction or CDATA section passes, no control character, and nothing after the end.

    @param listener  is told what is read, up to the first fault */
bool isHarmlessXml (std::string_view text, XmlListener* listener = nullptr);

} // namespace kestreleq
