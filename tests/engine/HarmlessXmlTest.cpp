#include "engine/HarmlessXml.h"
#include "engine/Utf8.h"
#include "tests/support/XmlStructure.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kestreleq::test
{
namespace
{

std::string nestedElements (int depth)
{
    std::string text;

    for (int i = 0; i < depth; ++i)
        text += "<a b='>'>";
    for (int i = 0; i < depth; ++i)
        text += "</a>";

    return text;
}

TEST (HarmlessXml, HasOneReading)
{
    for (const auto& text :
        { std::string ("<a/>"), nestedElements (8), std::string ("\n<a.b-1 _='\"'\tc = \"'/>\" ></a.b-1 >\r\n"),
            std::string ("<?xml version=\"1.0\"?> <a>x<b/>\xe2\x82\xac y</a>"),
            std::string ("<a b='&amp;&lt;&gt;&quot;&apos;'>&#65;&#x1F600;&#000010;&amp;lt;</a>") })
    {
        const auto structure = structureByScanner (text);
        ASSERT_TRUE (structure.has_value()) << text;
        EXPECT_EQ (structureByParser (text), *structure) << text;
    }
}

TEST (HarmlessXml, PassesNothingThatReadersMayDifferIn)
{
    // References that end nowhere, or past the quotation or tag, or are no character, or need a declaration.
    std::vector<std::string> refused;

    for (const auto* reference :
        { "&", "&;", "&amp", "&AMP;", "&nobody;", "&#;", "&#x;", "&#xQ", "&#x\"", "&#x<", "&#X41;", "&#x41", "&#65a;",
            "&#0;", "&#x1f;", "&#xd800;", "&#xffff;", "&#x110000;", "&#x000000041;", "&#-1;", "&#+65;" })
        for (const auto* place : { "<a b=\"?\"/>", "<a b='?'><c/></a>", "<a>?</a>", "<a>?" })
            refused.push_back (std::string (place).replace (std::string (place).find ('?'), 1, reference));

    // Names of binary data, whose size is the text's to choose; end tags with quotations; tags within tags; two
    // quotations or roots at once; what a parser leaves out; characters that end a text; nothing, or not all of it.
    for (const auto* text : { "<a base64:b=\"2000000000.\"/>", "<a></a \">\">", "<a b='<c>'/>", "<a b='1'c='2'/>",
             "<a/><a/>", "<a/>x", "x<a/>", "<a></b>", "< a/>", "<a / >", "<a b/>", "<a b=c/>", "<a b='\"/>", "<1/>",
             "<\xc3\xa4/>", "<a><!-- --></a>", "<a><![CDATA[]]></a>", "<a><?b?></a>", "<?a?><a/>", "<?xml?><a/>",
             "<?xml <a?><a/>", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>", "\xef\xbb\xbf<a/>", "<a>\x01</a>",
             "<a\x0b/>", "", " ", "<", "<a", "<a ", "<a b", "<a b=", "<a b='", "<a>", "<a><", "<a></", "<a></a",
             "<?xml ", "<?xml ?>", "<a>\xe6\xe6</a>" })
        refused.emplace_back (text);

    refused.emplace_back ("<?xml \0?><a/>", 13);
    refused.emplace_back ("<a b='\0'/>", 10);
    refused.push_back (nestedElements (9));
    refused.push_back (nestedElements (300000));
    refused.push_back ("<a>" + std::string (64 * 1024, ' ') + "</a>");

    for (const auto& text : refused)
        EXPECT_FALSE (isHarmlessXml (text)) << text.substr (0, 80);
}

/** What the fuzzer of pasted text does for hours. */
TEST (HarmlessXml, ReadsAsTheParserDoesAfterMutations)
{
    const std::string pieces[] { "<a", "<b ", "</a>", "</b>", ">", "/>", " c=\"", "='", "\"", "'", "&#x", "&amp;", ";",
        "<!--", "-->", "<?", "?>", " ", "x" };
    std::mt19937 random (15);
    int passed = 0;

    for (int i = 0; i < 10000; ++i)
    {
        std::string text = "<?xml v='1'?><a c='&#x41;'>x<b d=\"1\" e=''/><b> <a/>&lt;</b></a>";

        for (auto mutations = 1 + random() % 3; mutations > 0; --mutations)
        {
            const auto position = random() % text.size();

            if (random() % 3 == 0)
                text.erase (position, random() % 4);
            else
                text.insert (position, pieces[random() % std::size (pieces)]);
        }

        if (const auto structure = structureByScanner (text))
        {
            ++passed;
            ASSERT_EQ (structureByParser (text), *structure) << text;
        }
    }

    EXPECT_GT (passed, 200); // else it shows nothing
    EXPECT_LT (passed, 8000);
}

TEST (HarmlessXml, IsUtf8)
{
    for (const auto* text : { "", "a", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xed\x9f\xbf", "\xef\xbf\xbf",
             "\xf0\x90\x80\x80", "\xf4\x8f\xbf\xbf" })
        EXPECT_TRUE (isValidUtf8 (text)) << text;

    // Alone, cut short, not continued, overlong, a surrogate, and above the last character.
    for (const auto* text : { "\x80", "\xc2", "\xe0\xa0", "\xf0\x90\x80", "\xcc\xcc", "\xe6\xe6\xe6", "\xc0\xaf",
             "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xff" })
        EXPECT_FALSE (isValidUtf8 (text)) << text;
}

} // namespace
} // namespace kestreleq::test
