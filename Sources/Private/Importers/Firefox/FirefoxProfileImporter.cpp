#include "Private/Importers/Firefox/FirefoxProfileImporter.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/DatabaseImports.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"

namespace Rellinor {

namespace {

using Key = FirefoxProfileKey;

bool isAccount(const FirefoxProfileRecord& record) noexcept {
    return record[Key::hostname].text == "chrome://FirefoxAccounts";
}

/// Absent if there is no such file.
std::optional<FirefoxProfileLogins> loginsInJSON(const URL& file, ImportMemory& memory,
                                                 Reporter& reporter) {
    JSONFileProxy proxy(file, memory, reporter.limits().largestFile);
    auto logins = proxy.containerObject<FirefoxProfileLogins>();
    if (!logins && proxy.failure().reason != FailureReason::missing) {
        reportFailure(proxy, &reporter);
        throw ReadError(proxy.failure());
    }
    if (logins && logins->hasVulnerablePasswords()) {
        reporter.unread("potentiallyVulnerablePasswords");
    }
    if (logins && logins->hasDismissedAlerts()) {
        reporter.unread("dismissedBreachAlertsByLoginGUID");
    }
    return logins;
}

FirefoxProfileLogins loginsInDatabase(const URL& file, ImportMemory& memory, Reporter& reporter) {
    auto snapshot = SQLiteSnapshot::of(ExportFile::atPath(file), reporter.limits().largestFile);
    if (!snapshot) {
        const bool isMissing = snapshot.error() == FailureReason::missing;
        throw ReadError(isMissing ? FailureReason::noStore : snapshot.error());
    }
    SQLiteFileProxy proxy(*snapshot, SQLiteFaithfulness::whole, memory);
    SQLiteRows rows = proxy.select("SELECT * FROM moz_logins");
    const FailureReason reason = reasonOf(proxy.ending());
    if (rows.size() == 0 && reason != FailureReason::none) {
        throw ReadError(reason);
    }
    reporter.setPlaces(PlaceUnit::row);
    reportSideFiles(*snapshot, reporter);
    reportEnding(proxy.ending(), rows.size(), reporter);
    return FirefoxProfileLogins(std::move(rows));
}

} // namespace

FirefoxProfileLogins FirefoxProfileImporter::read(const ExportFile& file, ImportMemory& memory,
                                                  Reporter* reporter) {
    _reporter = reporter;
    _memory = &memory;
    if (!file.url()) {
        throw ReadError(FailureReason::noStore);
    }
    auto logins =
        loginsInJSON(file.url()->appendingPathComponent("logins.json"), memory, *reporter);
    if (!logins) {
        logins = loginsInDatabase(file.url()->appendingPathComponent("signons.sqlite"), memory,
                                  *reporter);
    }
    reporter->expect(logins->size());
    return *std::move(logins);
}

bool FirefoxProfileImporter::isPassword(const RawRecord& record) noexcept {
    constexpr auto lastText = Key::passwordField;

    return !isAccount(record) &&
           std::ranges::any_of(allFirefoxProfileKeys.begin(),
                               allFirefoxProfileKeys.begin() + indexOf(lastText) + 1,
                               [&](Key key) { return !record[key].text.value_or("").empty(); });
}

Dropped FirefoxProfileImporter::whyNoKind(const RawRecord& record) noexcept {
    if (!record.isObject()) {
        return {.reason = LeftOutReason::fieldOfOtherType, .field = "logins"};
    }
    return {.reason = isAccount(record) ? LeftOutReason::browserAccount : LeftOutReason::empty,
            .field = {}};
}

Built<ImportedPassword> FirefoxProfileImporter::buildPassword(const RawRecord& record) {
    constexpr std::int64_t milliseconds = 1000;

    const std::string_view username = secretOf(record, Key::encryptedUsername);
    const std::string_view password = secretOf(record, Key::encryptedPassword);
    const FirefoxValue changed = record[Key::timePasswordChanged];
    if (changed.isThere && !changed.integer) {
        find(FindingKind::valueOfOtherType, Key::timePasswordChanged);
    }
    const bool isKnown = changed.integer.value_or(0) != 0;
    return ImportedPassword{
        username,
        password,
        textOf(record, Key::hostname),
        {},
        {},
        {},
        isKnown ? std::optional(*changed.integer / milliseconds) : std::nullopt,
    };
}

void FirefoxProfileImporter::addExtras(const RawRecord& record, ExtrasTable& extras) {
    for (const Key key :
         {Key::httpRealm, Key::formSubmitURL, Key::usernameField, Key::passwordField}) {
        extras.add(ExtraKind::other, rawValue(key), textOf(record, key));
    }
    extras.add(ExtraKind::createdAt, rawValue(Key::timeCreated),
               digitsOf(record, Key::timeCreated));
    extras.add(ExtraKind::lastUsedAt, rawValue(Key::timeLastUsed),
               digitsOf(record, Key::timeLastUsed));
    extras.add(ExtraKind::other, rawValue(Key::timesUsed), digitsOf(record, Key::timesUsed));
}

void FirefoxProfileImporter::tellUnread(const RawRecord& record, Reporter& reporter) noexcept {
    for (const Key key : {Key::id, Key::guid, Key::encType, Key::syncCounter, Key::everSynced,
                          Key::encryptedUnknownFields}) {
        if (record[key].isThere) {
            reporter.unread(rawValue(key));
        }
    }
}

std::string_view FirefoxProfileImporter::textOf(const RawRecord& record, Key key) noexcept {
    const FirefoxValue value = record[key];
    if (value.isThere && !value.text) {
        find(FindingKind::valueOfOtherType, key);
    }
    return value.text.value_or("");
}

std::string_view FirefoxProfileImporter::secretOf(const RawRecord& record, Key key) noexcept {
    const std::string_view text = textOf(record, key);
    if (!text.empty()) {
        find(FindingKind::stillEncrypted, key);
    }
    return text;
}

std::string_view FirefoxProfileImporter::digitsOf(const RawRecord& record, Key key) {
    const FirefoxValue value = record[key];
    if (!value.integer) {
        if (value.isThere) {
            find(FindingKind::valueOfOtherType, key);
        }
        return {};
    }
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), *value.integer).ptr;
    return _memory->copy({digits.begin(), end});
}

void FirefoxProfileImporter::find(FindingKind kind, Key key) noexcept {
    _reporter->found(kind, rawValue(key));
}

} // namespace Rellinor
