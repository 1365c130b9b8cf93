#include "Private/Proxies/XMLDocument.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <Rellinor/ImportReport.hpp>

namespace Rellinor::Tests {

namespace {

/// An element as it could be written, without what belongs to looks.
std::string textOf(const XMLElement& element) {
    std::string text = "<" + std::string(element.name()) + ">" + std::string(element.text());
    for (const XMLElement& inner : element) {
        text += textOf(inner);
    }
    return text + "</>";
}

std::string parsed(std::string_view text) {
    const std::vector<char> exact(text.begin(), text.end());
    ImportMemory memory;
    const auto document = XMLDocument::parsed({exact.data(), exact.size()}, memory);
    if (!document) {
        return std::string(identifier(document.error().reason)) + " " +
               std::to_string(document.error().position.value_or(0));
    }
    return textOf(document->root());
}

TEST(XMLDocumentTest, keepsElementsTextsAndAttributes) {
    EXPECT_EQ(parsed("<a/>"), "<a></>");
    EXPECT_EQ(parsed("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\r\n"
                     "<!-- c --><a>\n\t<b>1 &lt;&#65;&#xD;\r\n2</b>\n<b><![CDATA[<x>]]></b></a>"),
              "<a><b>1 <A\r\n2</><b><x></></>");
    EXPECT_EQ(parsed("\xEF\xBB\xBF<a>\xC3\xA4</a>"), "<a>\xC3\xA4</>");
    EXPECT_EQ(parsed({"\xFF\xFE<\0a\0>\0\xE4\0<\0/\0a\0>\0", 18}), "<a>\xC3\xA4</>");

    ImportMemory memory;
    const auto document = XMLDocument::parsed("<a one='1' two='&quot;'>x<b>y</b></a>", memory);
    EXPECT_EQ(document->root().attribute("two"), "\"");
    EXPECT_EQ(document->root().attribute("three"), "");
    EXPECT_EQ(document->root().textOf("b"), "y");
    EXPECT_EQ(document->root().find("c"), nullptr);
    EXPECT_TRUE(document->hasTextBesideElements());
}

TEST(XMLDocumentTest, saysWhyATextIsNotRead) {
    EXPECT_EQ(parsed(""), "cutShort 0");
    EXPECT_EQ(parsed("<a><b></b>"), "cutShort 10");
    EXPECT_EQ(parsed("<a><b"), "cutShort 3");
    EXPECT_EQ(parsed("<a></b>"), "damaged 5");
    EXPECT_EQ(parsed("<a/><b/>"), "damaged 4");
    EXPECT_EQ(parsed("<a>&unknown;</a>"), "damaged 3");
    EXPECT_TRUE(parsed("<a>\xC3(</a>").starts_with("damaged"));
    for (const std::string encoding : {"ISO-8859-1", "windows-1252"}) {
        EXPECT_TRUE(
            parsed("<?xml version='1.0' encoding='" + encoding + "'?><a/>").starts_with("notUTF8"));
    }
}

TEST(XMLDocumentTest, stopsAtADocumentType) {
    EXPECT_TRUE(parsed("<!DOCTYPE a><a/>").starts_with("refusedForItsCost"));
    EXPECT_TRUE(parsed("<!DOCTYPE a [<!ENTITY x \"y\"><!ENTITY z \"&x;&x;&x;\">]><a>&z;</a>")
                    .starts_with("refusedForItsCost"));
    EXPECT_TRUE(
        parsed("<!DOCTYPE a SYSTEM \"file:///etc/passwd\"><a/>").starts_with("refusedForItsCost"));
}

TEST(XMLDocumentTest, isNestedNoDeeperThanTheLimit) {
    const auto nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t level = 0; level < depth; ++level) {
            text += "<a>";
        }
        for (std::size_t level = 0; level < depth; ++level) {
            text += "</a>";
        }
        return text;
    };
    EXPECT_TRUE(parsed(nested(256)).starts_with("<a>"));
    EXPECT_TRUE(parsed(nested(257)).starts_with("nestedTooDeep"));
}

TEST(XMLDocumentTest, endsWhereverTheTextIsCut) {
    const std::string whole = "<?xml version=\"1.0\"?><a b='c'><d>e&amp;f</d><!-- g --></a>";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_TRUE(parsed(whole.substr(0, size)).starts_with("cutShort")) << size;
    }
}

} // namespace

} // namespace Rellinor::Tests
