#include "Private/Importers/CSVLayouts.hpp"

#include "Platform/Fault.hpp"

namespace Rellinor {

namespace {

using Name = std::string_view;

constexpr Name lastPass[] = {"url", "username", "password", "extra", "name", "grouping", "fav"};
constexpr Name lastPassMore[] = {
    "totp", "id", "group", "fullname", "last_touch", "last_modified_gmt", "attachpresent"};

constexpr Name dashlaneLogins[] = {"username", "username2", "username3", "title",
                                   "password", "note",      "url"};
constexpr Name dashlaneLoginsMore[] = {"category", "otpurl", "otpsecret", "otp"};
constexpr Name dashlaneNotes[] = {"title", "note"};
constexpr Name dashlaneNotesMore[] = {"category"};
constexpr Name dashlanePayments[] = {"type", "account_name",     "cc_number",
                                     "code", "expiration_month", "expiration_year"};
constexpr Name dashlanePaymentsMore[] = {"account_holder",
                                         "routing_number",
                                         "account_number",
                                         "country",
                                         "issuing_bank",
                                         "note",
                                         "name"};
constexpr Name dashlaneIdentities[] = {"type",       "number",          "name",
                                       "issue_date", "expiration_date", "place_of_issue"};
constexpr Name dashlaneIdentitiesMore[] = {"state"};
constexpr Name dashlanePersons[] = {"type",        "title",     "first_name",
                                    "middle_name", "last_name", "date_of_birth"};
constexpr Name dashlaneNetworks[] = {"ssid", "passphrase", "encription_type"};
constexpr Name dashlaneNetworksMore[] = {"name", "note", "hidden"};

constexpr Name keePass[] = {"account", "login name", "password", "web site", "comments"};
constexpr Name keePassExact[] = {"Account", "Login Name", "Password", "Web Site", "Comments"};

constexpr Name keePassXC[] = {"group", "title", "username", "password", "url", "notes"};
constexpr Name keePassXCMore[] = {"totp", "icon", "last modified", "created"};
constexpr Name keePassXCExact[] = {"Group", "Title", "Username", "Password", "URL", "Notes"};

constexpr Name onePassword8[] = {"title",   "url",      "username", "password",
                                 "otpauth", "favorite", "archived"};
constexpr Name onePassword8More[] = {"tags", "notes"};
constexpr Name onePassword7Mac[] = {"title", "type", "password", "username", "scope"};
constexpr Name onePassword7MacChosen[] = {"title", "type", "password", "username"};
constexpr Name onePassword7MacMore[] = {"url", "notes", "tags", "created date", "modified date"};
constexpr Name onePassword7Windows[] = {"uuid", "title", "scope", "autosubmit"};

constexpr Name chromium[] = {"name", "url", "username", "password"};
constexpr Name chromiumMore[] = {"note"};

constexpr Name firefox[] = {"url", "username", "password", "httprealm", "formactionorigin", "guid"};
constexpr Name firefoxOlder[] = {"url",       "username",      "password",
                                 "httprealm", "formsubmiturl", "guid"};
constexpr Name firefoxMore[] = {"timecreated", "timelastused", "timepasswordchanged"};

constexpr Name apple[] = {"title", "url", "username", "password"};
constexpr Name appleMore[] = {"notes", "otpauth"};

constexpr Name bitwarden[] = {"type",      "name",           "notes",          "fields",
                              "login_uri", "login_username", "login_password", "login_totp"};
constexpr Name bitwardenMore[] = {"folder", "favorite", "collections", "reprompt", "archiveddate"};

constexpr Name protonPass[] = {"type", "name", "url",        "username",  "password",
                               "note", "totp", "createtime", "modifytime"};
constexpr Name protonPassMore[] = {"autofillurls", "email", "vault"};

constexpr Name nordPass[] = {"name",           "url",        "username", "password",   "note",
                             "cardholdername", "cardnumber", "cvc",      "expirydate", "zipcode",
                             "folder"};
constexpr Name nordPassMore[] = {"additional_urls", "pin",      "full_name", "phone_number",
                                 "email",           "address1", "address2",  "city",
                                 "country",         "state",    "type",      "custom_fields"};

constexpr Name roboForm[] = {"name", "url", "login", "pwd", "note", "folder"};
constexpr Name roboFormMore[] = {"matchurl", "rffieldsv2", "rf_fields"};

constexpr Name strongbox[] = {"title", "username", "email", "password", "url", "otpauth", "notes"};

constexpr Name dashlane = "Dashlane";
constexpr Name onePassword = "1Password";
constexpr Name mozilla = "Firefox";

using enum Layout;

constexpr CSVLayout layouts[] = {
    {.layout = lastPassCSV,
     .source = ImportSource::lastPass,
     .product = "LastPass",
     .required = lastPass,
     .optional = lastPassMore,
     .evidence = "the columns extra, grouping and fav",
     .exactNames = lastPass},

    {.layout = dashlaneCSV,
     .product = dashlane,
     .required = dashlaneLogins,
     .optional = dashlaneLoginsMore,
     .evidence = "the columns username2 and username3"},
    {.layout = dashlaneCSV,
     .others = OtherColumns::none,
     .product = dashlane,
     .required = dashlaneNotes,
     .optional = dashlaneNotesMore,
     .evidence = "the columns title and note alone"},
    {.layout = dashlaneCSV,
     .product = dashlane,
     .required = dashlanePayments,
     .optional = dashlanePaymentsMore,
     .evidence = "the columns account_name, cc_number and code"},
    {.layout = dashlaneCSV,
     .product = dashlane,
     .required = dashlaneIdentities,
     .optional = dashlaneIdentitiesMore,
     .evidence = "the columns issue_date, expiration_date and place_of_issue"},
    {.layout = dashlaneCSV,
     .product = dashlane,
     .required = dashlanePersons,
     .optional = {},
     .evidence = "the columns first_name, middle_name, last_name and date_of_birth"},
    {.layout = dashlaneCSV,
     .product = dashlane,
     .required = dashlaneNetworks,
     .optional = dashlaneNetworksMore,
     .evidence = "the columns ssid, passphrase and encription_type"},

    {.layout = keePassCSV,
     .source = ImportSource::keePass,
     .product = "KeePass",
     .required = keePass,
     .optional = {},
     .evidence = "the columns Account, Login Name, Password, Web Site and Comments",
     .exactNames = keePassExact},
    {.layout = keePassXCCSV,
     .others = OtherColumns::few,
     .source = ImportSource::keePassXC,
     .product = "KeePassXC",
     .required = keePassXC,
     .optional = keePassXCMore,
     .evidence = "the columns Group, Title, Username, Password, URL and Notes",
     .exactNames = keePassXCExact},

    {.layout = onePassword8CSV,
     .product = onePassword,
     .required = onePassword8,
     .optional = onePassword8More,
     .evidence = "the columns OTPAuth, Favorite and Archived"},
    {.layout = onePassword7MacCSV,
     .product = onePassword,
     .required = onePassword7Mac,
     .optional = onePassword7MacMore,
     .evidence = "the columns Title, Type and Scope"},
    {.layout = onePassword7MacCSV,
     .others = OtherColumns::none,
     .product = onePassword,
     .required = onePassword7MacChosen,
     .optional = onePassword7MacMore,
     .evidence = "the columns Title, Type, Username and Password"},
    {.layout = onePassword7WindowsCSV,
     .product = onePassword,
     .required = onePassword7Windows,
     .optional = {},
     .evidence = "the columns UUID, SCOPE and AUTOSUBMIT"},

    {.layout = chromiumCSV,
     .others = OtherColumns::none,
     .product = "Chrome, Edge or another Chromium browser",
     .required = chromium,
     .optional = chromiumMore,
     .evidence = "the columns name, url, username and password, or these and note"},
    {.layout = firefoxCSV,
     .product = mozilla,
     .required = firefox,
     .optional = firefoxMore,
     .evidence = "the columns httpRealm, formActionOrigin and guid"},
    {.layout = firefoxCSV,
     .product = mozilla,
     .required = firefoxOlder,
     .optional = firefoxMore,
     .evidence = "the columns httpRealm, formSubmitURL and guid"},
    {.layout = appleCSV,
     .others = OtherColumns::none,
     .product = "Apple Passwords or Safari",
     .required = apple,
     .optional = appleMore,
     .evidence = "the columns Title, URL, Username and Password, or these, Notes and OTPAuth"},

    {.layout = bitwardenCSV,
     .product = "Bitwarden",
     .required = bitwarden,
     .optional = bitwardenMore,
     .evidence = "the columns login_uri, login_username, login_password and login_totp"},
    {.layout = protonPassCSV,
     .product = "Proton Pass",
     .required = protonPass,
     .optional = protonPassMore,
     .evidence = "the columns type, totp, createTime and modifyTime"},
    {.layout = nordPassCSV,
     .product = "NordPass",
     .required = nordPass,
     .optional = nordPassMore,
     .evidence = "the columns cardholdername, cardnumber, cvc and zipcode"},
    {.layout = roboFormCSV,
     .product = "RoboForm",
     .required = roboForm,
     .optional = roboFormMore,
     .evidence = "the columns Login and Pwd"},
    {.layout = strongboxCSV,
     .product = "Strongbox",
     .required = strongbox,
     .optional = {},
     .evidence = "the columns Title, Email, OTPAuth and Notes"},
};

constexpr Name titles[] = {"title", "name", "label", "account", "site", "service"};
constexpr Name urls[] = {"url", "uri", "website", "web site", "address", "login_uri"};
constexpr Name usernames[] = {"username",   "user name", "user",  "login",
                              "login name", "email",     "e-mail"};
constexpr Name passwords[] = {"password", "pwd", "pass"};
constexpr Name notes[] = {"note", "notes", "comment", "comments", "extra"};
constexpr Name oneTimePasswords[] = {"totp", "otp", "otpauth", "otpsecret", "otpurl"};
constexpr Name folders[] = {"folder", "group", "grouping", "category", "tags"};

} // namespace

std::span<const CSVLayout> csvLayouts() noexcept {
    return layouts;
}

ColumnNames usualNames(UsualColumn column) noexcept {
    switch (column) {
    case UsualColumn::title:
        return titles;
    case UsualColumn::url:
        return urls;
    case UsualColumn::username:
        return usernames;
    case UsualColumn::password:
        return passwords;
    case UsualColumn::note:
        return notes;
    case UsualColumn::oneTimePassword:
        return oneTimePasswords;
    case UsualColumn::folder:
        return folders;
    }
    fault();
}

} // namespace Rellinor
