// The host tool's Tirel exports.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <stdlib.h> // NOLINT(modernize-deprecated-headers): posix_openpt is POSIX
#include <unistd.h>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

/// A terminal that shows to the test what is written on it.
class Terminal {
public:
    Terminal() : _descriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (_descriptor >= 0 && ::grantpt(_descriptor) == 0 && ::unlockpt(_descriptor) == 0) {
            _path = ::ptsname(_descriptor); // NOLINT(concurrency-mt-unsafe): one thread
        }
    }

    ~Terminal() {
        if (_descriptor >= 0) {
            ::close(_descriptor);
        }
    }

    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Where to write; empty if there are no terminals here.
    [[nodiscard]] const std::string& path() const { return _path; }

    /// What was written, if that is no more than a line or two.
    [[nodiscard]] std::string shown() const {
        ::fcntl(_descriptor, F_SETFL, O_NONBLOCK); // NOLINT(*-vararg)
        std::string text(4096, '\0');
        const ssize_t count = ::read(_descriptor, text.data(), text.size());
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return text;
    }

private:
    int _descriptor;
    std::string _path;
};

class TirelFormatTest : public testing::Test {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    /// A LastPass export of one login.
    [[nodiscard]] std::string login(std::string_view name, std::string_view fileName) const {
        return _folder.file(
            fileName, lastPassRows("https://a.example,ann,s3cret,," + std::string(name) + ",,0\n"));
    }

    static Ended exported(const std::string& source, const std::vector<std::string>& paths,
                          const std::string& output = "") {
        std::vector<std::string> arguments = {"import", "--source", source, "--format", "tirel"};
        arguments.insert(arguments.end(), paths.begin(), paths.end());
        return rellinor(std::move(arguments), output);
    }

private:
    TemporaryFolder _folder;
};

/// The entry of `login`.
std::string entry(std::string_view name) {
    return R"({"color":0,"custName":")" + std::string(name) +
           R"(","loginName":"ann","note":"","pwd":"s3cret","url":"https://a.example"})";
}

TEST_F(TirelFormatTest, writesOneDocumentOnOneLine) {
    const std::string path =
        folder().file("export.csv", lastPassRows("https://a.example,ann,\"s3,cret\",,Mail,,0\n"
                                                 "http://sn,,,\"two\nlines\",Wi-Fi 📷,,0\n"));
    const Ended ended = exported("lastPass", {path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.out,
              R"({"logins":[{"color":0,"custName":"Mail","loginName":"ann","note":"",)"
              R"("pwd":"s3,cret","url":"https://a.example"}],)"
              R"("notes":[{"color":0,"label":"Wi-Fi 📷","text":"two\nlines"}],"cards":[]})"
              "\n");
}

TEST_F(TirelFormatTest, joinsTheRecordsOfAllPathsInOrder) {
    const Ended ended =
        exported("lastPass", {login("One", "1"), login("Two", "2"), login("Three", "3")});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "{\"logins\":[" + entry("One") + "," + entry("Two") + "," +
                             entry("Three") + "],\"notes\":[],\"cards\":[]}\n");
}

TEST_F(TirelFormatTest, leavesOutThePathsThatFail) {
    const Ended ended =
        exported("lastPass", {login("One", "1"), folder() / "missing", login("Two", "2")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(linesIn(ended.errors), 1);
    EXPECT_EQ(ended.out, "{\"logins\":[" + entry("One") + "," + entry("Two") +
                             "],\"notes\":[],\"cards\":[]}\n");
}

TEST_F(TirelFormatTest, isEmptyIfEveryPathFails) {
    const Ended ended = exported("lastPass", {folder() / "missing"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "{\"logins\":[],\"notes\":[],\"cards\":[]}\n");
}

TEST_F(TirelFormatTest, leavesOutAnAbsentName) {
    const std::string path = folder().file(
        "export.1pif", R"({"typeName":"webforms.WebForm","secureContents":{"fields":[)"
                       R"({"designation":"username","value":"ann"},)"
                       R"({"designation":"password","value":"s3cret"}]}})");
    EXPECT_EQ(exported("onePassword", {path}).out,
              R"({"logins":[{"color":0,"loginName":"ann","note":"","pwd":"s3cret","url":""}],)"
              R"("notes":[],"cards":[]})"
              "\n");
}

TEST_F(TirelFormatTest, equalsTheTirelExportThatWasImported) {
    constexpr std::string_view document = R"({
      "logins": [
        {"color": 1, "custName": "Büro \"A\"", "loginName": "l1", "note": "two\nlines",
         "pwd": "s3,cret\\", "pwdChange": 1700000000, "url": "https://a.example/?q=1&r=2"},
        {"color": -9223372036854775808, "loginName": "", "note": "", "pwd": "",
         "pwdChange": -9223372036854775808, "url": ""},
        {"color": 9223372036854775807, "custName": "", "loginName": "漢字 👨‍👩‍👧", "note": "n3",
         "pwd": "nul\u0000 bell\u0007 \u2028", "url": "u3"}
      ],
      "notes": [
        {"color": 2, "label": "label", "text": "first\r\n\tsecond"},
        {"color": 0, "label": "", "text": ""}
      ],
      "cards": [
        {"cardNumber": "4000 0000 0000 0000", "custName": "Bank", "holderName": "Ann Berg",
         "cvv": "012", "pin": "0042", "note": "left\nright",
         "expirationDate": {"day": 31, "month": 12, "year": 2031}},
        {"cardNumber": "", "custName": "", "holderName": "", "cvv": "", "pin": "", "note": "",
         "expirationDate": {"day": -1, "month": 0, "year": 9223372036854775807}}
      ]
    })";
    const Ended ended = exported("tirel", {folder().file("export.json", document)});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(linesIn(ended.out), 1);
    EXPECT_EQ(boost::json::parse(ended.out), boost::json::parse(document));
}

TEST_F(TirelFormatTest, equalsTheSampleExport) {
    const std::string sample = RELLINOR_EXAMPLES "/Tirel/export.json";
    const Ended ended = exported("tirel", {sample});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(boost::json::parse(ended.out), boost::json::parse(contentsOf(sample)));
}

TEST_F(TirelFormatTest, carriesALastPassExport) {
    const std::string path = folder().file(
        "export.csv", lastPassRows("https://a.example/?x=1,ümlaut,\"a,b\",lost,\"Büro, Köln\",,0\n"
                                   "http://sn,,,\"two\nlines 🐟\",Wi-Fi,,0\n"
                                   ",,only a password,,,,\n"));
    const std::string between = folder().file("export.json", exported("lastPass", {path}).out);
    const Ended ended =
        rellinor({"import", "--source", "tirel", "--format", "json", "--reveal", between});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(
        ended.out,
        R"({"passwords":[{"username":"ümlaut","password":"a,b","url":"https://a.example/?x=1",)"
        R"("service":"Büro, Köln","color":0,"note":"","pwdChange":null},)"
        R"({"username":"","password":"only a password","url":"","service":"","color":0,)"
        R"("note":"","pwdChange":null}],)"
        R"("notes":[{"color":0,"title":"Wi-Fi","content":"two\nlines 🐟"}],"cards":[]})"
        "\n");
}

TEST_F(TirelFormatTest, isNotShownOnATerminalUnlessRevealed) {
    const Terminal terminal;
    if (terminal.path().empty()) {
        GTEST_SKIP() << "there are no terminals here";
    }
    const Ended refused = exported("lastPass", {login("One", "1")}, terminal.path());
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.errors, "rellinor: a Tirel export holds unmasked secrets: write it with "
                              "--output FILE, or show it with --reveal\n");
    EXPECT_EQ(terminal.shown(), "");

    const Ended revealed = exported("lastPass", {login("One", "1"), "--reveal"}, terminal.path());
    EXPECT_EQ(revealed.status, 0);
    EXPECT_EQ(revealed.errors, "");
    EXPECT_EQ(terminal.shown(),
              "{\"logins\":[" + entry("One") + "],\"notes\":[],\"cards\":[]}\r\n");

    const Ended written = exported(
        "lastPass", {login("One", "1"), "--output", folder() / "export.json"}, terminal.path());
    EXPECT_EQ(written.status, 0);
    EXPECT_EQ(terminal.shown(), "");
    EXPECT_TRUE(contentsOf(folder() / "export.json").contains("s3cret"));
}

} // namespace

} // namespace Rellinor::Tests
