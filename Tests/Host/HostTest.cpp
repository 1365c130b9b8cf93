// The command-line host, run as a process.

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

class HostTest : public testing::Test {
protected:
    std::string lastPassExport(std::string_view rows, std::string_view name = "export.csv") const {
        return _folder.file(name, lastPassRows(rows));
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    /// The import of `path` fails, with one line of error and nothing else.
    ///
    /// @param why  what the line says of the file
    static void expectFailure(const std::string& path, const std::string& why) {
        for (const std::string format : {"summary", "table", "json"}) {
            const Ended ended =
                rellinor({"import", "--source", "lastPass", "--format", format, path});
            EXPECT_EQ(ended.status, 1) << path;
            EXPECT_EQ(ended.errors,
                      "rellinor: " + path + ": not imported as lastPass: " + why + "\n");
            EXPECT_EQ(ended.out,
                      format == "json"
                          ? "{\"error\":{\"domain\":\"Rellinor.TextError\",\"code\":1}}\n"
                          : "");
        }
    }

    [[nodiscard]] std::string file(std::string_view name, std::string_view contents) const {
        return _folder.file(name, contents);
    }

    void expectFailureOfFile(std::string_view name, std::string_view contents,
                             const std::string& why) const {
        expectFailure(_folder.file(name, contents), why);
    }

    /// What is said of a command line that makes no sense.
    static std::string complaint(std::vector<std::string> arguments) {
        const Ended ended = rellinor(std::move(arguments));
        EXPECT_EQ(ended.status, 2);
        constexpr std::string_view begin = "rellinor: ";
        EXPECT_TRUE(ended.errors.starts_with(begin) && ended.errors.ends_with('\n'));
        return ended.errors.substr(begin.size(), ended.errors.size() - begin.size() - 1);
    }

private:
    TemporaryFolder _folder;
};

// import

TEST_F(HostTest, showsTheCountsByDefault) {
    const std::string path = lastPassExport("https://a.example,ann,one,,Mail,,0\n"
                                            "https://b.example,bob,two,,Bank,,0\n"
                                            "http://sn,,,text,Wi-Fi,,0\n");
    const Ended ended = rellinor({"import", "--source", "lastPass", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, path + ": 2 passwords, 1 note, 0 cards\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(HostTest, knowsTheSourceInAnyCase) {
    const std::string path = lastPassExport("");
    for (const std::string source : {"lastPass", "lastpass", "LASTPASS"}) {
        EXPECT_EQ(rellinor({"import", "--source", source, path}).status, 0) << source;
    }
}

TEST_F(HostTest, writesEveryFieldAsJSONAndMasksPasswords) {
    const std::string path = lastPassExport("https://a.example,ann,one,,Mail,,0\n"
                                            "http://sn,,,\"two\nlines\",\"\"\"Wi-Fi\"\"\",,0\n");
    const Ended ended = rellinor({"import", "--source", "lastPass", "--format", "json", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out,
              R"({"passwords":[{"username":"ann","password":"********","url":"https://a.example",)"
              R"("service":"Mail","color":null,"note":null,"pwdChange":null}],)"
              R"("notes":[{"color":null,"title":"\"\"Wi-Fi\"\"","content":"two\nlines"}],)"
              R"("cards":[]})"
              "\n");
}

TEST_F(HostTest, revealsPasswordsOnlyWhenAsked) {
    const std::string path = lastPassExport("https://a.example,ann,s3cret,,Mail,,0\n");
    for (const std::string format : {"summary", "table", "json"}) {
        const std::vector<std::string> arguments = {"import",   "--source", "lastPass",
                                                    "--format", format,     path};
        EXPECT_FALSE(rellinor(arguments).out.contains("s3cret")) << format;
        std::vector<std::string> revealing = arguments;
        revealing.insert(revealing.begin() + 1, "--reveal");
        EXPECT_EQ(rellinor(revealing).out.contains("s3cret"), format != "summary") << format;
    }
}

TEST_F(HostTest, doesNotTellTheLengthOfAPassword) {
    const std::string one = lastPassExport("https://a.example,ann,1,,Mail,,0\n", "one.csv");
    const std::string two =
        lastPassExport("https://a.example,ann,12345678901,,Mail,,0\n", "two.csv");
    const auto json = [](const std::string& path) {
        return rellinor({"import", "--source", "lastPass", "--format", "json", path}).out;
    };
    EXPECT_EQ(json(one), json(two));
}

TEST_F(HostTest, masksNotesUnlessASourceIsNamed) {
    const std::string path =
        file("export.json",
             R"({"cards":[],"notes":[{"color":0,"label":"Title","text":"s3cret"}],)"
             R"("logins":[{"color":0,"custName":"Mail","loginName":"ann","note":"s3cret",)"
             R"("pwd":"s3cret","url":"https://a.example"}]})");
    for (const std::string format : {"table", "json"}) {
        const Ended masked = rellinor({"import", "-f", format, path});
        EXPECT_FALSE(masked.out.contains("s3cret")) << format;
        for (const std::string_view shown : {"Title", "Mail", "ann", "https://a.example"}) {
            EXPECT_TRUE(masked.out.contains(shown)) << format << shown;
        }
        EXPECT_TRUE(rellinor({"import", "-r", "-f", format, path}).out.contains("s3cret"));
        EXPECT_TRUE(rellinor({"import", "-s", "tirel", "-f", format, path}).out.contains("s3cret"));
    }
}

TEST_F(HostTest, exportsNothingThatIsStillEncryptedUnlessAsked) {
    for (const std::string store : {"/Firefox/current.profile", "/Firefox/old.profile"}) {
        const std::string path = RELLINOR_EXAMPLES + store;
        const Ended refused = rellinor({"import", "-f", "tirel", path});
        EXPECT_EQ(refused.status, 1);
        EXPECT_EQ(refused.out, "{\"logins\":[],\"notes\":[],\"cards\":[]}\n");
        EXPECT_TRUE(refused.errors.contains("still encrypted")) << refused.errors;
        const Ended exported = rellinor({"import", "-f", "tirel", "--encrypted", path});
        EXPECT_EQ(exported.status, 0);
        EXPECT_TRUE(exported.out.contains("\"pwd\":\"M"));
    }
}

TEST_F(HostTest, failsForALossOnlyIfThatIsAsked) {
    const std::string path = file("export.1pif", "{\"typeName\":\"system.folder.Regular\"}\n");
    EXPECT_EQ(rellinor({"import", "-l", "1password-1pif", path}).status, 0);
    EXPECT_EQ(rellinor({"import", "-l", "1password-1pif", "--strict", path}).status, 1);
}

TEST_F(HostTest, alignsATableByDisplayWidth) {
    const std::string path = lastPassExport("https://a.example,ann,one,,漢字,,0\n"
                                            "https://b.example,bob,two,,Grüße,,0\n"
                                            "http://sn,,,\"a\nb\",Wi-Fi,,0\n");
    const Ended ended = rellinor({"import", "--source", "lastPass", "--format", "table", path});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, path + "\n"
                                "\n"
                                "Passwords (2)\n"
                                "  SERVICE  USERNAME  PASSWORD  URL                NOTE\n"
                                "  -------  --------  --------  -----------------  ----\n"
                                "  漢字     ann       ********  https://a.example  -\n"
                                "  Grüße    bob       ********  https://b.example  -\n"
                                "\n"
                                "Notes (1)\n"
                                "  TITLE  CONTENT\n"
                                "  -----  -------\n"
                                "  Wi-Fi  a␊b\n"
                                "\n");
}

TEST_F(HostTest, showsOfAnExpiryWhatIsKnown) {
    const std::string path = file(
        "export.json",
        R"({"logins":[],"notes":[],"cards":[{"cardNumber":"4","custName":"a","holderName":"b",)"
        R"("cvv":"1","pin":"2","note":"","expirationDate":{"day":0,"month":3,"year":2027}}]})");
    EXPECT_TRUE(rellinor({"import", "--format", "table", path}).out.contains(" 3.2027"));
    EXPECT_TRUE(rellinor({"import", "--source", "tirel", "--format", "table", path})
                    .out.contains(" 0.3.2027"));
}

TEST_F(HostTest, saysSoInATableWithoutRecords) {
    const std::string path = lastPassExport("");
    EXPECT_EQ(rellinor({"import", "--source", "lastPass", "--format", "table", path}).out,
              path + "\n\nno records\n\n");
}

TEST_F(HostTest, sendsNoControlCharacterToTheTerminal) {
    const std::string path = lastPassExport("https://a.example,\x1B[31mann,one,,Ma\ail,,0\n");
    EXPECT_FALSE(rellinor({"import", "--source", "lastPass", "--format", "table", path})
                     .out.contains('\x1B'));
}

TEST_F(HostTest, importsSeveralPathsInOrderAndGoesOnAfterAFailure) {
    const std::string first = lastPassExport("https://a.example,ann,one,,Mail,,0\n", "first.csv");
    const std::string second = lastPassExport("http://sn,,,text,Wi-Fi,,0\n", "second.csv");
    for (const bool keep : {false, true}) {
        std::vector<std::string> arguments = {"import", "--source",           "lastPass",
                                              first,    folder() / "missing", second};
        if (keep) {
            arguments.insert(arguments.begin() + 1, "--keep-importer");
        }
        const Ended ended = rellinor(arguments);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, first + ": 1 password, 0 notes, 0 cards\n" + second +
                                 ": 0 passwords, 1 note, 0 cards\n");
        EXPECT_EQ(linesIn(ended.errors), 1);
    }
}

TEST_F(HostTest, writesOneLineOfJSONForEachPathInOrder) {
    const std::string path = lastPassExport("");
    const Ended ended = rellinor(
        {"import", "--source", "lastPass", "--format", "json", path, folder() / "missing", path});
    const std::string empty = "{\"passwords\":[],\"notes\":[],\"cards\":[]}\n";
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out,
              empty + "{\"error\":{\"domain\":\"Rellinor.TextError\",\"code\":1}}\n" + empty);
}

// Bad input

TEST_F(HostTest, failsClearlyForAMissingFile) {
    expectFailure(folder() / "missing", "There is no such file.");
}

TEST_F(HostTest, failsClearlyForAFolder) {
    expectFailure(folder().path(), "It is no ordinary file.");
}

TEST_F(HostTest, failsClearlyForAnEmptyFile) {
    expectFailureOfFile("empty", "", "There is no row in the file.");
}

TEST_F(HostTest, failsClearlyForABlankFile) {
    expectFailureOfFile("blank", " \n\t\n\n", "There is no row in the file.");
}

TEST_F(HostTest, failsClearlyForALatin1File) {
    expectFailureOfFile("latin1", lastPassRows("https://a.example,caf\xE9,one,,Mail,,0\n"),
                        "lastpass-csv (LastPass CSV export): The text is not UTF-8: save the "
                        "file as UTF-8");
}

TEST_F(HostTest, failsClearlyForOtherColumns) {
    expectFailureOfFile("other", "some,text\n", "The columns are not those of such a file.");
}

TEST_F(HostTest, namesAnOddPathOnOneLine) {
    const Ended ended = rellinor({"import", "--source", "lastPass", folder() / "a\nb\x1B"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(linesIn(ended.errors), 1);
    EXPECT_TRUE(ended.errors.contains("a␊b␛")) << ended.errors;
}

// Wrong usage

TEST_F(HostTest, rejectsWrongUsage) {
    const std::string path = lastPassExport("");
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"import"},
        {"import", "--source", "lastPass"},
        {"import", "--source", "unknown", path},
        {"import", "--source", "lastPass", "--format", "xml", path},
        {"import", "--source", "lastPass", "--unknown", path},
        {"unknown"},
        {"--unknown"},
    };
    for (const auto& arguments : wrong) {
        const Ended ended = rellinor(arguments);
        EXPECT_EQ(ended.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(ended.out, "") << testing::PrintToString(arguments);
        EXPECT_EQ(linesIn(ended.errors), 1) << ended.errors;
        EXPECT_TRUE(ended.errors.starts_with("rellinor: ")) << ended.errors;
    }
}

TEST_F(HostTest, namesTheHelpOfTheCommand) {
    EXPECT_EQ(complaint({}),
              "a command is missing; the commands are import, check, detect, sources "
              "and layouts (rellinor --help tells more)");
    EXPECT_TRUE(complaint({"--"}).starts_with("a command is missing"));
    EXPECT_EQ(complaint({"import", "--source", "lastPass", "--layout", "tirel-json", "a"}),
              "--source excludes --layout (rellinor import --help tells more)");
    EXPECT_EQ(complaint({"detect"}), "PATH is required (rellinor detect --help tells more)");
    EXPECT_EQ(complaint({"import", "--source", "lastPass", "--force", "a"}),
              "--force requires --output (rellinor import --help tells more)");
}

TEST_F(HostTest, namesTheNearestOption) {
    EXPECT_EQ(complaint({"--verson"}),
              "\"--verson\" is not known; did you mean --version? (rellinor --help tells more)");
    EXPECT_EQ(complaint({"import", "--sorce", "lastPass", "a"}),
              "\"--sorce\" is not known; did you mean --source? (rellinor import --help tells "
              "more)");
    EXPECT_EQ(complaint({"import", "--source", "lastPass", "--formt=json", "a"}),
              "\"--formt\" is not known; did you mean --format? (rellinor import --help tells "
              "more)");
    EXPECT_EQ(complaint({"detect", "--source", "auto", "a"}),
              "\"--source\" is not known; the options are --help and --format (rellinor detect "
              "--help tells "
              "more)");
    EXPECT_EQ(complaint({"check", "-x", "a"}),
              "\"-x\" is not known; the options are --help, --source, --layout and --format "
              "(rellinor check --help "
              "tells more)");
}

TEST_F(HostTest, namesTheNearestCommand) {
    EXPECT_EQ(complaint({"imprt", "--sorce"}),
              "\"imprt\" is not known; did you mean import? (rellinor --help tells more)");
    EXPECT_EQ(complaint({"xyz"}), "\"xyz\" is not known; the commands are import, check, detect, "
                                  "sources and layouts (rellinor --help tells more)");
    EXPECT_EQ(complaint({"sources", "all"}),
              "\"all\" is not expected (rellinor sources --help tells more)");
}

TEST_F(HostTest, saysWhichValueIsMissingOrTooMany) {
    const std::string end = " (rellinor import --help tells more)";
    EXPECT_EQ(complaint({"import", "a", "--source"}), "--source needs a SOURCE" + end);
    EXPECT_EQ(complaint({"import", "--source", "tirel", "--format"}),
              "--format needs a FORMAT" + end);
    EXPECT_EQ(complaint({"import", "--source", "tirel", "--source", "lastPass", "a"}),
              "--source may be given only once" + end);
    EXPECT_EQ(complaint({"import", "--source", "tirel", "--reveal=much", "a"}),
              "--reveal takes no value" + end);
}

TEST_F(HostTest, saysSoIfTheOutputCannotBeWritten) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "there is no full device here";
    }
    const Ended ended =
        rellinor({"import", "--source", "lastPass", lastPassExport("")}, "/dev/full");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.errors, "rellinor: the output could not be written\n");
}

// The rest

TEST_F(HostTest, listsTheSourcesInTheirOrder) {
    const Ended ended = rellinor({"sources"});
    EXPECT_EQ(ended.status, 0);
    std::size_t from = 0;
    for (const std::string_view source : {"chrome ", "lastPass ", "dashlane ", "onePassword ",
                                          "tirel ", "keePass ", "keePassXC ", "firefox "}) {
        const std::size_t found = ended.out.find(source, from);
        EXPECT_NE(found, std::string::npos) << source << "is missing, or not in its place";
        from = found;
    }
    EXPECT_EQ(linesIn(ended.out), 8);
}

TEST_F(HostTest, tellsItsVersionAndItsUsage) {
    const Ended version = rellinor({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.out.starts_with("rellinor ")) << version.out;

    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"}, std::vector<std::string>{"import", "--help"}}) {
        const Ended help = rellinor(arguments);
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.out.contains("Usage: rellinor")) << help.out;
    }
}

TEST_F(HostTest, importsTheSampleStoresOfBrowsers) {
    const std::string login = RELLINOR_EXAMPLES "/Chrome/Login Data";
    EXPECT_EQ(rellinor({"import", "--source", "chrome", login}).out,
              login + ": 6 passwords, 0 notes, 0 cards\n");
    for (const std::string profile : {"current", "old"}) {
        const std::string path = RELLINOR_EXAMPLES "/Firefox/" + profile + ".profile";
        EXPECT_EQ(rellinor({"import", "--source", "firefox", path}).out,
                  path + ": 3 passwords, 0 notes, 0 cards\n");
    }
}

TEST_F(HostTest, importsTheSampleExportsOfLoginsAlone) {
    const auto expectLogins = [](const std::string& source, const std::string& folder, int count) {
        const std::string path = RELLINOR_EXAMPLES "/" + folder + "/export.csv";
        EXPECT_EQ(rellinor({"import", "--source", source, path}).out,
                  path + ": " + std::to_string(count) + " passwords, 0 notes, 0 cards\n");
    };
    expectLogins("dashlane", "Dashlane", 7);
    expectLogins("keePass", "KeePass", 7);
    expectLogins("keePassXC", "KeePassXC", 9);
}

TEST_F(HostTest, keepsOneImporterForBothForksOfKeePass) {
    const std::string classic = RELLINOR_EXAMPLES "/KeePass/export.csv";
    const std::string xc = RELLINOR_EXAMPLES "/KeePassXC/export.csv";
    const Ended ended = rellinor({"import", "--source", "keePassXC", "--keep-importer", classic, xc,
                                  folder() / "missing", classic});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, classic + ": 7 passwords, 0 notes, 0 cards\n" + xc +
                             ": 9 passwords, 0 notes, 0 cards\n" + classic +
                             ": 7 passwords, 0 notes, 0 cards\n");
    EXPECT_EQ(linesIn(ended.errors), 1);
    EXPECT_TRUE(ended.errors.contains("/missing: not imported as keePassXC: ")) << ended.errors;
}

TEST_F(HostTest, importsTheSampleExports) {
    struct Sample {
        std::string source;
        std::string path;
        std::string counts;
    };

    for (const Sample& sample : {
             Sample{"lastPass", "/LastPass/export.csv", "12 passwords, 4 notes, 0 cards"},
             Sample{"onePassword", "/OnePassword/export.1pif", "5 passwords, 3 notes, 0 cards"},
             Sample{"tirel", "/Tirel/export.json", "6 passwords, 3 notes, 2 cards"},
         }) {
        const std::string path = RELLINOR_EXAMPLES + sample.path;
        const Ended ended = rellinor({"import", "--source", sample.source, path});
        EXPECT_EQ(ended.status, 0) << path;
        EXPECT_EQ(ended.out, path + ": " + sample.counts + "\n");
    }
}

} // namespace

} // namespace Rellinor::Tests
