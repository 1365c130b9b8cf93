#include "Private/Importers/KeePass/KeePassXML.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

Reading read(std::string_view text) {
    return readingOf(Layout::keePassXML, text);
}

std::string entry(std::string_view inner) {
    return "<KeePassFile><Root><Group><Name>G</Name><Entry>" + std::string(inner) +
           "</Entry></Group></Root></KeePassFile>";
}

std::string string(std::string_view key, std::string_view value) {
    return "<String><Key>" + std::string(key) + "</Key>" + std::string(value) + "</String>";
}

constexpr std::string_view database = R"(<?xml version="1.0" encoding="utf-8" standalone="yes"?>
<KeePassFile>
  <Meta><Generator>KeePass</Generator><DatabaseName>mine</DatabaseName>
    <RecycleBinEnabled>True</RecycleBinEnabled><RecycleBinUUID>BIN=</RecycleBinUUID></Meta>
  <Root>
    <Group><UUID>ROOT=</UUID><Name>Database</Name><Notes>about</Notes>
      <Group><UUID>WORK=</UUID><Name>Work</Name>
        <Entry>
          <UUID>E1=</UUID><IconID>0</IconID><ForegroundColor>#FF0000</ForegroundColor>
          <OverrideURL>cmd://x</OverrideURL><Tags>one;two, three</Tags>
          <Times><CreationTime>2024-05-01T10:00:00Z</CreationTime>
            <LastModificationTime>2024-05-02T10:00:00Z</LastModificationTime>
            <LastAccessTime>2024-05-03T10:00:00Z</LastAccessTime>
            <ExpiryTime>2024-05-04T10:00:00Z</ExpiryTime><Expires>True</Expires>
            <UsageCount>7</UsageCount></Times>
          <String><Key>Notes</Key><Value>two
lines {REF:P@I:1}</Value></String>
          <String><Key>Password</Key><Value ProtectInMemory="True">p&amp;"1</Value></String>
          <String><Key>Title</Key><Value>Mail</Value></String>
          <String><Key>URL</Key><Value>https://mail.example.org/</Value></String>
          <String><Key>UserName</Key><Value>ann</Value></String>
          <String><Key>hint</Key><Value>blue</Value></String>
          <String><Key>code</Key><Value ProtectInMemory="True">9876</Value></String>
          <String><Key>otp</Key><Value>otpauth://totp/x</Value></String>
          <String><Key>TimeOtp-Period</Key><Value>60</Value></String>
          <String><Key>none</Key><Value/></String>
          <Binary><Key>file.txt</Key><Value Ref="0"/></Binary>
          <AutoType><Enabled>True</Enabled><DefaultSequence/></AutoType>
          <History><Entry><String><Key>Password</Key><Value>old</Value></String></Entry></History>
        </Entry>
      </Group>
      <Entry><String><Key>UserName</Key><Value>bob</Value></String></Entry>
      <Entry><UUID>E3=</UUID><String><Key>Title</Key><Value/></String></Entry>
      <Group><UUID>BIN=</UUID><Name>Bin</Name>
        <Group><Name>deep</Name><Entry><String><Key>Title</Key><Value>gone</Value></String></Entry></Group>
      </Group>
      <Group><Name>Empty</Name></Group>
    </Group>
  </Root>
</KeePassFile>
)";

TEST(KeePassXMLTest, readsAllOfAnEntry) {
    const Reading reading = read(database);
    const Outcome expected = {.passwords = {{.username = "ann",
                                             .password = "p&\"1",
                                             .url = "https://mail.example.org/",
                                             .service = "Mail",
                                             .note = "two\nlines {REF:P@I:1}"},
                                            {.username = "bob", .password = "", .url = ""}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "furtherURL OverrideURL=cmd://x\n"
                                    "customText hint=blue\n"
                                    "customSecret code=9876\n"
                                    "oneTimePassword otp=otpauth://totp/x\n"
                                    "customText TimeOtp-Period=60\n"
                                    "folder Group=Database/Work\n"
                                    "tag Tags=one\n"
                                    "tag Tags=two\n"
                                    "tag Tags=three\n"
                                    "createdAt CreationTime=2024-05-01T10:00:00Z\n"
                                    "modifiedAt LastModificationTime=2024-05-02T10:00:00Z\n"
                                    "lastUsedAt LastAccessTime=2024-05-03T10:00:00Z\n"
                                    "other ExpiryTime=2024-05-04T10:00:00Z\n");
    EXPECT_EQ(reading.extras.at(1), "folder Group=Database\n");
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::empty), 1);
    for (const std::string_view part :
         {"identifiers", "icons and colours", "attachments", "old versions of entries",
          "names of empty fields", "notes of groups", "groups without entries",
          "name and description of the database"}) {
        EXPECT_EQ(reading.unread(part), 1) << part;
    }
    EXPECT_EQ(reading.unread("auto-type"), 0);
    EXPECT_EQ(reading.report.placeUnit(), PlaceUnit::record);
    EXPECT_EQ(readExport(ExportFile::inMemory(database, "")).report.layout(), Layout::keePassXML);
}

TEST(KeePassXMLTest, readsTheBinIfThereIsNone) {
    std::string text(database);
    text.replace(text.find("True"), 4, "False");
    EXPECT_EQ(read(text).records.passwords.size(), 3);
}

TEST(KeePassXMLTest, passesOverWhatIsStillEncrypted) {
    const Reading reading =
        read(entry(string("Title", "<Value>x</Value>") +
                   string("Password", R"(<Value Protected="True">c2VjcmV0</Value>)")));
    EXPECT_EQ(reading.records.passwords.at(0).password, "");
    EXPECT_EQ(reading.found(FindingKind::stillEncrypted), 1);
}

TEST(KeePassXMLTest, keepsStringsOfOneKey) {
    const Reading reading =
        read(entry(string("Title", "<Value>x</Value>") + string("Title", "<Value>y</Value>") +
                   string("URL", "<Value>a</Value>") + string("URL", "<Value>b</Value>")));
    EXPECT_EQ(reading.records.passwords.at(0).service, "x");
    EXPECT_EQ(reading.extras.at(0), "customText Title=y\ncustomText URL=b\nfolder Group=G\n");
}

TEST(KeePassXMLTest, tellsOfElementsThatItDoesNotKnow) {
    EXPECT_EQ(
        read(entry(string("Title", "<Value>x</Value>") + "<New>1</New>")).unread("other elements"),
        1);
    EXPECT_EQ(
        read(entry("stray" + string("Title", "<Value>x</Value>"))).unread("text beside elements"),
        1);
}

TEST(KeePassXMLTest, failsWithTheLineOfWhatIsNotXML) {
    const Reading reading = read("<KeePassFile>\n<Root>\n</Group>");
    EXPECT_EQ(reading.report.failure().reason, FailureReason::damaged);
    EXPECT_EQ(reading.report.failure().place, 3);
    EXPECT_EQ(read("<other/>").report.failure().reason, FailureReason::wrongShape);
    EXPECT_EQ(read("<KeePassFile/>").delivered(), 0);
    EXPECT_FALSE(read("<KeePassFile/>").records.error);
}

TEST(KeePassXMLTest, keepsEachStringThatHoldsSomething) {
    const Reading reading = read(entry(
        string("Title", "<Value>x</Value>") + string("Title", "<Value/>") +
        string("Notes", "<Value>n</Value>") + string("Notes", "<Value>m</Value>") +
        string("Notes", "<Value/>") + string("URL", "<Value/>") + string("", "<Value/>") +
        string("", "<Value>nameless</Value>") + string("nothing", "") +
        string("TOTP Seed", "<Value>JBSW</Value>") +
        string("TOTP Settings", "<Value>30;6</Value>") +
        "<Times><ExpiryTime>2024-05-04T10:00:00Z</ExpiryTime><Expires>False</Expires></Times>"));
    const Outcome expected = {
        .passwords = {
            {.username = "", .password = "", .url = "", .service = "x", .color = {}, .note = "n"}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_EQ(reading.extras.at(0), "customText Notes=m\ncustomText =nameless\n"
                                    "oneTimePassword TOTP Seed=JBSW\n"
                                    "customText TOTP Settings=30;6\nfolder Group=G\n");
    EXPECT_TRUE(reading.report.unread().empty());
}

TEST(KeePassXMLTest, tellsOfWhatAPersonHasPutIntoTheProduct) {
    const std::string title = string("Title", "<Value>x</Value>");
    for (const auto& [element, part] : std::vector<std::pair<std::string, std::string_view>>{
             {"<AutoType><DefaultSequence>{USERNAME}</DefaultSequence></AutoType>", "auto-type"},
             {"<AutoType><Association><Window>w</Window></Association></AutoType>", "auto-type"},
             {"<CustomData><Item><Key>k</Key><Value>v</Value></Item></CustomData>",
              "data of plug-ins"},
             {"<IconID>12</IconID>", "icons and colours"},
             {string("KPEX_PASSKEY_PRIVATE_KEY_PEM", "<Value>k</Value>"), "passkeys"}}) {
        const Reading reading = read(entry(title + element));
        EXPECT_EQ(reading.unread(part), 1) << element;
        EXPECT_EQ(reading.extras.at(0), "folder Group=G\n") << element;
    }
    EXPECT_TRUE(
        read(entry(title +
                   "<IconID>0</IconID><QualityCheck>False</QualityCheck><CustomIconUUID/><New/>"))
            .report.unread()
            .empty());
}

TEST(KeePassXMLTest, leavesOutAllThatIsInTheBin) {
    const std::string gone = "<Entry>" + string("Title", "<Value>gone</Value>") + "</Entry>";
    const std::string group = "<Group><UUID>BIN=</UUID><Name>Bin</Name>" + gone + "<Group>" + gone +
                              "<Group>" + gone +
                              "</Group><Group><Name>empty</Name></Group>"
                              "</Group></Group>";
    const auto with = [](std::string_view groups) {
        return read("<KeePassFile><Meta><RecycleBinEnabled>True</RecycleBinEnabled>"
                    "<RecycleBinUUID>BIN=</RecycleBinUUID></Meta><Root><Group><Name>R</Name>" +
                    std::string(groups) +
                    "</Group><DeletedObjects><DeletedObject/>"
                    "</DeletedObjects></Root></KeePassFile>");
    };
    const Reading reading = with(group);
    EXPECT_EQ(reading.delivered(), 0);
    EXPECT_EQ(reading.leftOut(LeftOutReason::trashed), 3);
    EXPECT_TRUE(reading.report.unread().empty());
    EXPECT_TRUE(
        with("<Group><UUID>BIN=</UUID><Name>Bin</Name></Group><Group/>").report.unread().empty());
    EXPECT_EQ(
        readingOf(Layout::keePassXML, ExportFile::atPath("/nowhere/x.xml")).report.failure().reason,
        FailureReason::missing);
}

TEST(KeePassXMLTest, readsUTF16OfEitherOrder) {
    const std::string text =
        R"(<?xml version="1.0" encoding="utf-16"?>)" + entry(string("Title", "<Value>x</Value>"));
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char character : text) {
        little += {character, '\0'};
        big += {'\0', character};
    }
    for (const std::string& bytes : {little, big}) {
        ASSERT_EQ(read(bytes).delivered(), 1);
        EXPECT_EQ(read(bytes).records.passwords.at(0).service, "x");
    }
}

} // namespace

} // namespace Rellinor::Tests
