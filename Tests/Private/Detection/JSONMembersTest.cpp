#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Private/Detection/Detected.hpp"

namespace Rellinor::Tests {

namespace {

using enum Confidence;

const Found bitwarden = layoutFound("bitwarden-json");
const Found encryptedBitwarden =
    obstructedBy(FailureReason::encrypted, "bitwarden-json", Confidence::certain);
const Found proton = layoutFound("protonpass-json");
const Found exchange = layoutFound("credential-exchange-json");
const Found tirel = layoutFound("tirel-json", certain, ImportSource::tirel);
const Found firefoxStore = obstructedBy(FailureReason::other, "firefox-profile", certain);

TEST(JSONMembersTest, knowsWhatProductsWrite) {
    const std::vector<std::pair<std::string_view, Found>> documents = {
        {R"({"encrypted":false,"folders":[],"items":[]})", bitwarden},
        {R"({ "encrypted" : false, "collections":[{"id":)", bitwarden},
        {R"({"encrypted":true,"encKeyValidation_DO_NOT_EDIT":"2.a|b|c","items":[]})",
         encryptedBitwarden},
        {R"({"encrypted": true,"passwordProtected":true,"salt":"x","data":"2.a"})",
         encryptedBitwarden},
        {R"({"encrypted":true,"data":"x"})", encryptedBitwarden},
        {R"({"version":"1.31.0","userId":"u","encrypted":false,"vaults":{"id":{"items":[]}}})",
         proton},
        {R"({"encrypted":true,"version":"1","vaults":{}})",
         obstructedBy(FailureReason::encrypted, "protonpass-json", certain)},
        {R"({"version":"1","vaults":{}})", proton},
        {R"({"userId":"u","vaults":{}})", proton},
        {R"({"accounts":[{"attrs":{},"vaults":[]}]})", layoutFound("1password-1pux")},
        {R"({"version":{"major":1,"minor":0},"exporterRpId":"a.example","accounts":[]})", exchange},
        {R"({"id":"a","collections":[],"items":[{"title":"","credentials":[{"type":"note"}]}]})",
         exchange},
        {R"({"accounts":[{"items":[{"credentials":[]}]}]})", exchange},
        {R"({"shared_folders":[],"records":[]})", layoutFound("keeper-json")},
        {R"({"records":[{"title":"Mail","$type":"login"}]})", layoutFound("keeper-json")},
        {R"({"folders":[],"items":[{"title":"Mail","template_type":"login.default"}]})",
         layoutFound("enpass-json")},
        {R"({"metadata":{"browser_name":"Safari","data_type":"payment_cards"},"payment_cards":[]})",
         layoutFound("safari-zip")},
        {R"( {"logins":[],"notes":[],"cards":[]} )", tirel},
        {R"({"notes":[{"label":"a"}],"cards":[]})", tirel},
        {R"({"cards":[{"holderName":"a"}]})", tirel},
        {R"({"cards":[],"x":{"y":[[1]]},"notes":[{}],"logins":[null]})", tirel},
        {"{\r\"logins\":[],\r\"notes\":[],\r\"cards\":[]\r}\r", tirel},
        {"\uFEFF{\"logins\":[],\"notes\":[],\"cards\":[]}", tirel},
        {R"({"logins":[],"notes":[],"cards":[],"x":1e-99999999999})", tirel},
        {R"({"nextId":1,"logins":[]})", firefoxStore},
        {R"({"logins":[{"encryptedPassword":""}]})", firefoxStore},
    };
    for (const auto& [text, found] : documents) {
        EXPECT_EQ(detected(text), found) << text;
    }
}

TEST(JSONMembersTest, knowsALongDocumentByItsBeginning) {
    const std::string filling(300'000, 'x');
    EXPECT_EQ(detected(R"({"encrypted":false,"items":[{"name":")" + filling), bitwarden);
    EXPECT_EQ(detected(R"({"logins":[{"custName":"","loginName":"","note":")" + filling), tirel);
}

TEST(JSONMembersTest, needsTheMembersInTheirPlaces) {
    for (const std::string_view text :
         {"{}",
          "[]",
          "[1,2]",
          "{",
          R"({"items":[],"folders":[]})",
          R"({"logins":[]})",
          R"({"logins":[],"notes":[]})",
          R"({"logins":[],"notes":[],"cards":{}})",
          R"([{"logins":[],"notes":[],"cards":[]}])",
          R"({"a":{"logins":[],"notes":[],"cards":[]}})",
          R"([{"logins":1},[],{"notes":1},[],{"cards":1},[]])",
          R"({"Logins":[],"notes":[],"cards":[]})",
          R"({"accounts":[],"vaults":[]})",
          R"({"accounts":{"vaults":[]}})",
          R"({"records":[[{"$type":1}]]})",
          R"({"items":[{"x":{"credentials":[]}}]})",
          R"({"vaults":{}})",
          R"({"encrypted":false})",
          R"({"payment_cards":[]})",
          R"({"notes":[{"label":"a"}]})",
          R"({"a":{"b":{"c":{"d":{"e":{"f":{"logins":[],"notes":[],"cards":[]}}}}}}})"}) {
        EXPECT_EQ(detected(text), Found{}) << text;
    }
}

TEST(JSONMembersTest, doesNotNestWithTheFile) {
    for (const std::string_view piece : {"[", "{\"a\":", "[{\"items\":"}) {
        std::string nested;
        for (int i = 0; i < 100'000; ++i) {
            nested += piece;
        }
        EXPECT_EQ(detected(nested), Found{});
        EXPECT_EQ(detected("{\"logins\":" + nested), Found{});
    }
}

TEST(JSONMembersTest, takesNoJSONForATable) {
    const std::string rows = R"("a","https://a.example","{01234567-89AB-CDEF-0123-456789ABCDEF}",)"
                             R"("b","c","d"]})";
    for (const std::string_view begin : {"{\"x\":[", "[", "[[", " {\n\"x\":[", "\uFEFF[\r\n"}) {
        EXPECT_EQ(detected(std::string(begin) + rows), Found{}) << begin;
    }
    EXPECT_EQ(detected("[a,https://a.example,ann,one,\n").layout, "dashlane-positional-csv");
}

// 1PIF

TEST(JSONMembersTest, knowsTheLinesOf1Password) {
    const auto records = [](Confidence confidence) {
        return layoutFound("1password-1pif", confidence, ImportSource::onePassword);
    };
    EXPECT_EQ(detected("{\"uuid\":\"1\",\"typeName\":\"x\"}\n***separator***\n"), records(certain));
    EXPECT_EQ(detected("\uFEFFstrange\n{\"uuid\" : \"1\", \"typeName\" : \"x\"}\r\n***a***\r\n"),
              records(certain));
    EXPECT_EQ(detected(R"({"uuid":"1","securityLevel":"SL5","secureContents":{}})"),
              records(likely));
    EXPECT_EQ(detected("***a***\n***b***\n{\"uuid\":\"1\",\"typeName\":\"x\"}"), records(certain));
    EXPECT_EQ(detected("***not one\n{\"uuid\":\"1\",\"typeName\":\"x\"}"), records(likely));
    for (const std::string_view text :
         {R"({"uuid":"1","a":"{\"typeName\":2}"})", R"({"a":"{\"uuid\":1,\"typeName\":2}"})",
          R"({"uuid":"1","a":"typeName"})", R"({"uuid":"1","typeName")",
          R"( {"uuid":"1","typeName":"x"})", R"({"uuid":"typeName"})", "***separator***\n"}) {
        EXPECT_EQ(detected(text), Found{}) << text;
    }
}

} // namespace

} // namespace Rellinor::Tests
