#include "Host/JSONText.hpp"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <Rellinor/Models/TirelExportData.hpp>
#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

std::string written(std::string_view text) {
    JSONText json;
    json.value(text);
    return std::string(json.written());
}

/// How the library writes a text into a Tirel export.
std::string writtenByTheLibrary(std::string_view text) {
    TirelExportData data;
    data.notes.emplace_back(0, "", std::string(text));
    const std::string all = data.encode();
    const std::size_t begin = all.find("\"text\":") + 7;
    return all.substr(begin, all.find("\"}]", begin) + 1 - begin);
}

std::string inUTF8(std::uint32_t codePoint) {
    const auto byte = [](std::uint32_t value) { return static_cast<char>(value); };
    if (codePoint < 0x80) {
        return {byte(codePoint)};
    }
    const char last = byte(0x80 | (codePoint & 0x3F));
    if (codePoint < 0x800) {
        return {byte(0xC0 | codePoint >> 6U), last};
    }
    return {byte(0xE0 | codePoint >> 12U), byte(0x80 | (codePoint >> 6U & 0x3F)), last};
}

TEST(JSONTextTest, commandsNoTerminalAndTurnsNoWriting) {
    EXPECT_EQ(written("a\u007Fb\u009B\u009F"), R"("a\u007fb\u009b\u009f")");
    EXPECT_EQ(written("\u202Eevil\u2066\u2069\u061C\u200F"),
              R"("\u202eevil\u2066\u2069\u061c\u200f")");
    EXPECT_EQ(written("\u2028\u2029\n"), R"("\u2028\u2029\n")");
    EXPECT_EQ(written("\u00A0\u00B7\u0621\u200D\u2026\u2070 \xF0\x9F\x98\x80"),
              "\"\u00A0\u00B7\u0621\u200D\u2026\u2070 \xF0\x9F\x98\x80\"");
}

TEST(JSONTextTest, escapesWhatTheLibraryEscapes) {
    for (std::uint32_t codePoint = 0; codePoint < 0x10000; ++codePoint) {
        if (codePoint < 0xD800 || codePoint > 0xDFFF) {
            const std::string text = inUTF8(codePoint);
            EXPECT_EQ(written(text), writtenByTheLibrary(text)) << codePoint;
        }
    }
}

} // namespace

} // namespace Rellinor::Host
