#include "Host/Detection/CSVLayouts.hpp"

#include "Host/KnownColumns.hpp"

namespace Rellinor::Host {

namespace {

using Name = std::string_view;

constexpr ReadLayout read[] = {
    {.layout = "LastPass export",
     .source = ImportSource::lastPass,
     .columns = lastPassColumns,
     .later = laterLastPassColumns},
    {.layout = "KeePass export",
     .source = ImportSource::keePass,
     .columns = classicKeePassColumns,
     .later = {}},
    {.layout = "KeePassXC export",
     .source = ImportSource::keePassXC,
     .columns = keePassXCColumns,
     .later = laterKeePassXCColumns},
};

constexpr Name dashlaneLogins[] = {"username", "username2", "username3", "title",
                                   "password", "note",      "url"};
constexpr Name dashlanePayments[] = {"type", "account_name",     "account_holder", "cc_number",
                                     "code", "expiration_month", "expiration_year"};
constexpr Name dashlaneIdentities[] = {"type",       "number",          "name",
                                       "issue_date", "expiration_date", "place_of_issue"};
constexpr Name dashlanePersons[] = {"type",        "title",     "first_name",
                                    "middle_name", "last_name", "date_of_birth"};
constexpr Name dashlaneNotes[] = {"title", "note"};
constexpr Name dashlaneNotesWithCategory[] = {"title", "note", "category"};
constexpr Name firefox[] = {"url", "username", "password", "httpRealm", "formActionOrigin", "guid"};
constexpr Name onePassword[] = {"Title",   "Url",      "Username", "Password",
                                "OTPAuth", "Favorite", "Archived"};
constexpr Name safari[] = {"Title", "URL", "Username", "Password", "OTPAuth"};
constexpr Name safariWithNotes[] = {"Title", "URL", "Username", "Password", "Notes", "OTPAuth"};
constexpr Name chrome[] = {"name", "url", "username", "password"};
constexpr Name chromeWithNote[] = {"name", "url", "username", "password", "note"};

constexpr OtherLayout others[] = {
    {.layout = "Dashlane export of logins (credentials.csv)",
     .columns = dashlaneLogins,
     .mayHaveMore = true,
     .confidence = Confidence::certain,
     .renamed = {"title", "username", "password", "url", "note"}},
    {.layout = "Dashlane export of payments (payments.csv)",
     .columns = dashlanePayments,
     .mayHaveMore = true,
     .confidence = Confidence::certain,
     .renamed = {}},
    {.layout = "Dashlane export of identities (ids.csv)",
     .columns = dashlaneIdentities,
     .mayHaveMore = true,
     .confidence = Confidence::certain,
     .renamed = {}},
    {.layout = "Dashlane export of personal data (personalInfo.csv)",
     .columns = dashlanePersons,
     .mayHaveMore = true,
     .confidence = Confidence::certain,
     .renamed = {}},
    {.layout = "Dashlane export of notes (securenotes.csv)",
     .columns = dashlaneNotes,
     .mayHaveMore = false,
     .confidence = Confidence::possible,
     .renamed = {}},
    {.layout = "Dashlane export of notes (securenotes.csv)",
     .columns = dashlaneNotesWithCategory,
     .mayHaveMore = false,
     .confidence = Confidence::possible,
     .renamed = {}},
    {.layout = "Firefox CSV export",
     .columns = firefox,
     .mayHaveMore = true,
     .confidence = Confidence::certain,
     .renamed = {"", "username", "password", "url", ""}},
    {.layout = "1Password CSV export",
     .columns = onePassword,
     .mayHaveMore = true,
     .confidence = Confidence::likely,
     .renamed = {"Title", "Username", "Password", "Url", ""}},
    {.layout = "Safari CSV export",
     .columns = safariWithNotes,
     .mayHaveMore = false,
     .confidence = Confidence::certain,
     .renamed = {"Title", "Username", "Password", "URL", "Notes"}},
    {.layout = "Safari CSV export",
     .columns = safari,
     .mayHaveMore = false,
     .confidence = Confidence::certain,
     .renamed = {"Title", "Username", "Password", "URL", ""}},
    {.layout = "Chrome or Edge CSV export",
     .columns = chromeWithNote,
     .mayHaveMore = false,
     .confidence = Confidence::likely,
     .renamed = {"name", "username", "password", "url", "note"}},
    {.layout = "Chrome or Edge CSV export",
     .columns = chrome,
     .mayHaveMore = false,
     .confidence = Confidence::likely,
     .renamed = {"name", "username", "password", "url", ""}},
};

} // namespace

std::span<const ReadLayout> readLayouts() noexcept {
    return read;
}

ColumnNames keePassColumns() noexcept {
    return classicKeePassColumns;
}

std::span<const OtherLayout> otherLayouts() noexcept {
    return others;
}

} // namespace Rellinor::Host
