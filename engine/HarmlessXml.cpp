#include "engine/HarmlessXml.h"

#include "engine/Utf8.h"

#include <charconv>
#include <cstddef>
#include <cstdint>

namespace kestreleq
{
namespace
{

constexpr std::size_t greatestTextSize = 64 * 1024; // a saved state has 1.3 KiB; 1 MiB of names took the parser seconds
constexpr int greatestDepth = 8;

constexpr bool isXmlSpace (char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

constexpr bool beginsXmlName (char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

/** No colon, which XML allows: the framework takes a value for binary data, of any size, where the name begins so. */
constexpr bool continuesXmlName (char c)
{
    return beginsXmlName (c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

/** What XML 1.0 calls a Char. */
constexpr bool isXmlCharacter (std::uint32_t c)
{
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c <= 0xd7ff) || (c >= 0xe000 && c <= 0xfffd) ||
        (c >= 0x10000 && c <= 0x10ffff);
}

/** Reads XML from its beginning to its end. Every function tells whether what it reads was there; once one has said no,
    the text is refused. */
class XmlScanner
{
public:
    XmlScanner (std::string_view text, XmlListener* listenerToTell)
        : rest (text),
          listener (listenerToTell)
    {
    }

    bool readDocument()
    {
        if (take ("<?xml") && ! readHeader())
            return false;

        skipSpace();

        if (! readElement (1))
            return false;

        skipSpace();
        return rest.empty();
    }

private:
    bool take (std::string_view expected)
    {
        const auto found = rest.starts_with (expected);
        rest.remove_prefix (found ? expected.size() : 0);
        return found;
    }

    template <typename Predicate>
    std::string_view takeWhile (Predicate belongs)
    {
        std::size_t length = 0;

        while (length < rest.size() && belongs (rest[length]))
            ++length;

        const auto taken = rest.substr (0, length);
        rest.remove_prefix (length);
        return taken;
    }

    bool skipSpace() { return ! takeWhile (isXmlSpace).empty(); }

    /** Empty if there is none. */
    std::string_view takeName()
    {
        return ! rest.empty() && beginsXmlName (rest.front()) ? takeWhile (continuesXmlName) : std::string_view();
    }

    bool readHeader()
    {
        const auto spaced = skipSpace();
        takeWhile ([] (char c) { return c != '?' && c != '<' && isXmlCharacter (static_cast<unsigned char> (c)); });
        return spaced && take ("?>");
    }

    bool readElement (int depth)
    {
        if (depth > greatestDepth || ! take ("<"))
            return false;

        const auto name = takeName();

        if (name.empty())
            return false;

        if (listener != nullptr)
            listener->elementBegan (name);

        auto spaced = skipSpace();

        for (; ! rest.starts_with ('>') && ! rest.starts_with ("/>"); spaced = skipSpace())
            if (! spaced || ! readAttribute())
                return false;

        if (! take ("/>") && ! (take (">") && readContent (depth) && readEndTag (name)))
            return false;

        if (listener != nullptr)
            listener->elementEnded();

        return true;
    }

    bool readAttribute()
    {
        const auto name = takeName();

        if (name.empty())
            return false;

        skipSpace();

        if (! take ("="))
            return false;

        skipSpace();
        const auto quote = rest.substr (0, 1);

        if (! take ("\"") && ! take ("'"))
            return false;

        const auto value = takeCharacters (quote.front());

        if (! take (quote))
            return false;

        if (listener != nullptr)
            listener->attribute (name, value);

        return true;
    }

    /** Text and elements, up to the next end tag. */
    bool readContent (int depth)
    {
        for (;;)
        {
            const auto text = takeCharacters ('<');

            if (listener != nullptr)
                listener->characters (text);

            if (rest.starts_with ("</"))
                return true;

            if (! readElement (depth + 1))
                return false;
        }
    }

    bool readEndTag (std::string_view name)
    {
        if (! take ("</") || takeName() != name)
            return false;

        skipSpace();
        return take (">");
    }

    /** Up to the next such character or tag, or to what is no legal text, where nothing that may follow is found. */
    std::string_view takeCharacters (char end)
    {
        const auto start = rest;

        while (! rest.empty() && rest.front() != end && rest.front() != '<')
        {
            const auto c = rest.front();

            if (c == '&' ? ! readReference() : ! isXmlCharacter (static_cast<unsigned char> (c)))
                break;

            if (c != '&')
                rest.remove_prefix (1);
        }

        return start.substr (0, start.size() - rest.size());
    }

    /** Leaves the text as it was if there is no complete one. */
    bool readReference()
    {
        for (const auto* known : { "&amp;", "&lt;", "&gt;", "&quot;", "&apos;" })
            if (take (known))
                return true;

        if (! rest.starts_with ("&#"))
            return false;

        const bool hexadecimal = rest.starts_with ("&#x");
        const auto digits = rest.substr (hexadecimal ? 3 : 2);
        std::uint32_t character = 0;
        const auto [end, error] =
            std::from_chars (digits.data(), digits.data() + digits.size(), character, hexadecimal ? 16 : 10);
        const auto length = static_cast<std::size_t> (end - digits.data());

        // The framework gives up after 8 hexadecimal or 12 decimal digits, and then skips what may be a quotation mark.
        if (error != std::errc() || length > 8 || ! digits.substr (length).starts_with (';') ||
            ! isXmlCharacter (character))
            return false;

        rest = digits.substr (length + 1);
        return true;
    }

    std::string_view rest;
    XmlListener* listener;
};

} // namespace

bool isHarmlessXml (std::string_view text, XmlListener* listener)
{
    return text.size() <= greatestTextSize && isValidUtf8 (text) && XmlScanner (text, listener).readDocument();
}

} // namespace kestreleq
