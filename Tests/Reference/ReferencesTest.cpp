// The references that fuzzers compare with read what is worked out by hand.

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Reference/DatabaseReference.hpp"
#include "Tests/Reference/FirefoxReference.hpp"
#include "Tests/Reference/JSONReference.hpp"
#include "Tests/Reference/OnePasswordReference.hpp"
#include "Tests/Reference/TextReference.hpp"
#include "Tests/Reference/TirelReference.hpp"
#include "Tests/Reference/URLReference.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

std::size_t charactersIn(std::string_view text) {
    return referenceNumberOfCharacters(referenceCodePoints(text).value());
}

TEST(ReferencesTest, textIsStrictUTF8) {
    EXPECT_EQ(referenceCodePoints("a\u00E9\u20AC\U0001F511\U0010FFFF"),
              U"a\u00E9\u20AC\U0001F511\U0010FFFF");
    for (const std::string_view bytes : {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\x80",
                                         "\xF4\x90\x80\x80", "\xE2\x82", "\xFF"}) {
        EXPECT_EQ(referenceCodePoints(bytes), std::nullopt) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(referenceDecodedText("\uFEFF\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(referenceDecodedText("\xFF"), std::nullopt);
    // One for a longest beginning, one for a byte that begins nothing.
    EXPECT_EQ(referenceRepairedText("a\xF0\x9F\x94z\xED\xA0\x80"), "a\uFFFDz\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(referenceUTF16(U"a\U0001F511"), u"a\U0001F511");
    EXPECT_TRUE(referenceIsBlank(U"\t \u00A0\u3000"));
    EXPECT_FALSE(referenceIsBlank(U"\n"));
}

TEST(ReferencesTest, charactersAreGraphemeClusters) {
    EXPECT_EQ(charactersIn(""), 0);
    EXPECT_EQ(charactersIn("a\r\nb"), 3);                                    // GB3
    EXPECT_EQ(charactersIn("\r\u0301"), 2);                                  // GB4
    EXPECT_EQ(charactersIn("\u1100\u1161\u11A8\uAC00\u11A8"), 2);            // GB6 to GB8
    EXPECT_EQ(charactersIn("e\u0301\u0301"), 1);                             // GB9
    EXPECT_EQ(charactersIn("\u0915\u0903"), 1);                              // GB9a
    EXPECT_EQ(charactersIn("\u0600a"), 1);                                   // GB9b
    EXPECT_EQ(charactersIn("\U0001F468\U0001F3FB\u200D\U0001F469"), 1);      // GB11
    EXPECT_EQ(charactersIn("a\u200D\U0001F469"), 2);                         // no pictograph
    EXPECT_EQ(charactersIn("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7x"), 3); // GB12
    EXPECT_EQ(charactersIn("a\U0001F1E9\U0001F1EA\U0001F1EB"), 3);           // GB13
}

TEST(ReferencesTest, jsonIsReadByItsGrammar) {
    const auto value = referenceJSON("\t{ \"a\\u00e9\\ud83d\\udd11\\n\" : [1.0e1,\"\",null,true],"
                                     "\"b\":{},\"b\":[{}]} ");
    ASSERT_TRUE(value);
    const JSONReferenceValue* const list = value->member("a\u00E9\U0001F511\n");
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->elements.size(), 4);
    EXPECT_EQ(list->elements[0].integer(), 10);
    EXPECT_EQ(list->elements[1].string(), "");
    EXPECT_EQ(list->objects(), nullptr);
    EXPECT_EQ(value->member("b")->kind, JSONReferenceValue::Kind::object); // the first

    for (const std::string_view text :
         {"", "3", "null", "[1,]", "[01]", "[+1]", "[.5]", "[1.]", "[1e]", "{} x", "[\"\t\"]",
          "[\"\\uD800\"]", "[\"\\uDC00\"]", "[\"\\x\"]", "{\"a\"}", "{1:2}", "[NaN]", "[\xFF]"}) {
        EXPECT_FALSE(referenceJSON(text)) << text;
    }
    EXPECT_TRUE(referenceJSON(std::string(512, '[') + std::string(512, ']')));
    EXPECT_FALSE(referenceJSON(std::string(513, '[') + std::string(513, ']')));
}

TEST(ReferencesTest, integersAreExactHoweverTheyAreSpelt) {
    EXPECT_EQ(referenceInteger("9223372036854775807"), 9223372036854775807);
    EXPECT_EQ(referenceInteger("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(referenceInteger("9223372036854775808"), std::nullopt);
    EXPECT_EQ(referenceInteger("92233720368547758070e-1"), 9223372036854775807);
    EXPECT_EQ(referenceInteger("0.0012e4"), 12);
    EXPECT_EQ(referenceInteger("-5.0"), -5);
    EXPECT_EQ(referenceInteger("1.5"), std::nullopt);
    EXPECT_EQ(referenceInteger("1e-1"), std::nullopt);
    EXPECT_EQ(referenceInteger("1e19"), std::nullopt);
    EXPECT_EQ(referenceInteger("-0e999999999"), 0);
    EXPECT_EQ(referenceInteger("0e99999999999999999999"), 0);
    EXPECT_EQ(referenceInteger("1e99999999999999999999"), std::nullopt);
    EXPECT_TRUE(isReferenceNumber("-0.5E+07"));
    EXPECT_FALSE(isReferenceNumber("00"));
}

TEST(ReferencesTest, hostsAreFoundByTheGrammarOfURLs) {
    for (const std::string_view text :
         {"http://sn", "https://sn/x", "http://sn?q", "HTTP://sn", "http://sn:80/x",
          "http://user@sn/", "//sn/path", "file://sn/x", "http://%73n/", "http://sn:"}) {
        EXPECT_EQ(referenceHost(text), "sn") << text;
    }
    EXPECT_EQ(referenceHost("http://SN"), "SN");
    EXPECT_EQ(referenceHost("http:///sn"), "");
    EXPECT_EQ(referenceHost("http://[::ffff:1.2.3.4]/"), "[::ffff:1.2.3.4]");
    for (const std::string_view text :
         {"", "sn", "/sn", "sn:", "mailto:sn", " http://sn", "http://sn ", "http://sn/a b",
          "http://sn/\u00E9", "http://sn/%zz", "http://sn:x", "1://sn", "http://[::1", "http://[1]",
          "http://[::1.2.3.256]", "http://a@b@sn"}) {
        EXPECT_EQ(referenceHost(text), std::nullopt) << text;
    }
    EXPECT_EQ(referenceFileURL("/Users/ann/a b;\u00E9.csv"),
              "file:///Users/ann/a%20b%3B%C3%A9.csv");
}

TEST(ReferencesTest, recordLinesAreOneValue) {
    const auto value = referencePIF("\uFEFF{\"a\":1}\r\n {}\n***\n{}", "records");
    ASSERT_TRUE(value);
    ASSERT_EQ(value->members.size(), 1);
    EXPECT_EQ(value->members.front().second.elements.size(), 2);
    EXPECT_FALSE(referencePIF("{}{}", "records"));
}

TEST(ReferencesTest, onePasswordRecordsAreToldByTheirType) {
    const Outcome outcome = referenceOnePasswordImport(
        R"({"typeName":"webforms.WebForm","title":"T","secureContents":{"URLs":[{"url":"u"}],)"
        R"("fields":[{"designation":"username","value":"n"},{"designation":"password","value":"p"}]}})"
        "\n"
        R"({"typeName":"securenotes.SecureNote","title":"N","secureContents":{"notesPlain":"c"}})"
        "\n"
        R"({"typeName":"passwords.Password","title":"N","secureContents":{"password":"c"}})");
    EXPECT_EQ(
        outcome,
        (Outcome{.passwords = {{.username = "n", .password = "p", .url = "u", .service = "T"}},
                 .notes = {{.color = std::nullopt, .title = "N", .content = "c"}}}));
    EXPECT_EQ(referenceOnePasswordImport("{").error, NSError("Rellinor.PIFParsingError", 1));
}

TEST(ReferencesTest, tirelExportsAreDecodedWholeOrNot) {
    const std::string login =
        R"({"color":1.0,"custName":null,"loginName":"n","note":"t","pwd":"p",)"
        R"("url":"u"})";
    const std::string rest = R"(],"notes":[{"color":2,"label":"l","text":"t"}],"cards":[]})";
    EXPECT_EQ(
        referenceTirelImport(R"({"logins":[)" + login + rest),
        (Outcome{
            .passwords = {{.username = "n", .password = "p", .url = "u", .color = 1, .note = "t"}},
            .notes = {{.color = 2, .title = "l", .content = "t"}}}));
    EXPECT_EQ(referenceTirelImport(R"({"logins":[)" + login + ",5" + rest), failedWithText());
}

TEST(ReferencesTest, firefoxLoginsNeedAllTheirFields) {
    EXPECT_EQ(referenceFirefoxImport(
                  R"({"logins":[{"hostname":"h","encryptedUsername":"u","encryptedPassword":"p"},)"
                  R"({"hostname":"h","encryptedUsername":"u","encryptedPassword":1}]})"),
              (Outcome{.passwords = {{.username = "u", .password = "p", .url = "h"}}}));
    EXPECT_EQ(referenceFirefoxImport(R"({"logins":[{},1]})"), Outcome());
}

TEST(ReferencesTest, databasesAreReadOnAConnectionOfTheirOwn) {
    const TemporaryFolder folder;
    const std::string path = database(
        folder, {"CREATE TABLE t (a, b)", "INSERT INTO t VALUES (4294967297, x'')",
                 "INSERT INTO t VALUES (CAST(x'6100FF' AS TEXT), 0.1)",
                 "CREATE TABLE moz_logins (hostname, encryptedUsername, encryptedPassword)",
                 "INSERT INTO moz_logins VALUES ('h', 'u', 'p'), ('h', 'u', NULL)"});
    EXPECT_EQ(referenceSelect(path, "SELECT a, b FROM t"),
              (std::vector<Values>{{{"a", 1}, {"b", {}}}, {{"a", "a"}, {"b", 0.1F}}}));
    EXPECT_TRUE(referenceSelect(path, "SELECT c FROM t").empty());
    EXPECT_EQ(referenceSignonsImport(path),
              (Outcome{.passwords = {{.username = "u", .password = "p", .url = "h"}}}));
    EXPECT_EQ(referenceBase64("v10"), "djEw");
    EXPECT_EQ(referenceBase64("v1"), "djE=");
    EXPECT_EQ(referenceBase64("v"), "dg==");
}

} // namespace

} // namespace Rellinor::Tests
