#include "Host/CredentialExchangeFormat.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <span>
#include <string>

#include "Host/JSONText.hpp"
#include "Host/OneTimePassword.hpp"

namespace Rellinor::Host {

namespace {

/// A number in so many digits, or more.
std::string inDigits(std::int64_t number, std::size_t count) {
    const std::string digits = std::to_string(number);
    return std::string(count - std::min(count, digits.size()), '0') + digits;
}

/// The identifier of an item by its number. It is read as Base64, of which eight digits are a
/// text.
std::string identifierOf(std::size_t number) {
    return inDigits(static_cast<std::int64_t>(number), 8);
}

/// A text as seconds since 1970, if it can be: times of other units have more digits.
std::optional<std::int64_t> secondsIn(std::string_view text) noexcept {
    constexpr std::size_t mostDigits = 11;

    std::int64_t seconds = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool isWhole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isWhole && text.size() <= mostDigits ? std::optional(seconds) : std::nullopt;
}

/// A value that has no member of its own.
struct CustomField {
    std::string_view type;
    std::string label;
    std::string value;
};

/// Writes items, and remembers in which folders they are.
class Items {
public:
    explicit Items(JSONText& json) noexcept : _json(json) {}

    void write(const ImportedPasswordInfoProviding& login, std::span<const Extra> extras) {
        begin(login.service().value_or(""), extras);
        const std::string_view name = login.username();
        _takesEmails = !name.empty(); // or a reader takes the first of them for the name
        writeScope(login.url(), extras);
        beginCredentials();
        beginCredential("basic-auth");
        writeField("username", "string", name);
        writeField("password", "concealed-string", login.password());
        _json.endObject();
        addNumber("color", login.color());
        addNumber("pwdChange", login.pwdChange());
        end(login.note().value_or(""), extras);
    }

    void write(const ImportedNoteInfoProviding& note, std::span<const Extra> extras) {
        begin(note.title(), extras);
        writeScope("", extras);
        beginCredentials();
        writeNote(note.content());
        addNumber("color", note.color());
        end("", extras);
    }

    void write(const ImportedCardInfoProviding& card, std::span<const Extra> extras) {
        begin(card.custName(), extras);
        writeScope("", extras);
        beginCredentials();
        beginCredential("credit-card");
        writeFieldIfAny("number", "concealed-string", card.cardNumber());
        writeFieldIfAny("fullName", "string", card.holderName());
        writeFieldIfAny("verificationNumber", "concealed-string", card.cvv());
        writeFieldIfAny("pin", "concealed-string", card.pin());
        writeExpiry(card);
        _json.endObject();
        end(card.note(), extras);
    }

    /// Writes which items are in which folder.
    void writeCollections() {
        std::size_t number = 0;
        _json.key("collections");
        _json.beginArray();
        for (const auto& [folder, items] : _folders) {
            _json.beginObject();
            _json.member("id", identifierOf(++number));
            _json.member("title", folder);
            _json.key("items");
            _json.beginArray();
            for (const std::size_t item : items) {
                _json.beginObject();
                _json.member("item", identifierOf(item));
                _json.endObject();
            }
            _json.endArray();
            _json.endObject();
        }
        _json.endArray();
    }

private:
    /// Begins an item with what every kind has; the rest of the extras are custom fields.
    void begin(std::string_view title, std::span<const Extra> extras) {
        ++_number;
        _takesEmails = true;
        _custom.clear();
        _json.beginObject();
        _json.member("id", identifierOf(_number));
        writeTime("creationAt", ExtraKind::createdAt, extras);
        writeTime("modifiedAt", ExtraKind::modifiedAt, extras);
        _json.member("title", title);
        if (std::ranges::find(extras, ExtraKind::favourite, &Extra::kind) != extras.end()) {
            _json.member("favorite", true);
        }
        writeTags(extras);
        for (const Extra& extra : extras) {
            if (extra.kind == ExtraKind::folder) {
                _folders[std::string(extra.value)].push_back(_number);
            }
        }
    }

    /// The first time of a kind, if it is in seconds; any other is a custom field.
    void writeTime(std::string_view name, ExtraKind kind, std::span<const Extra> extras) {
        bool isFirst = true;
        for (const Extra& extra : extras) {
            if (extra.kind != kind) {
                continue;
            }
            if (const auto seconds = secondsIn(extra.value); seconds && isFirst) {
                _json.member(name, *seconds);
            } else {
                addCustom("string", extra);
            }
            isFirst = false;
        }
    }

    void writeTags(std::span<const Extra> extras) {
        if (std::ranges::find(extras, ExtraKind::tag, &Extra::kind) == extras.end()) {
            return;
        }
        _json.key("tags");
        _json.beginArray();
        for (const Extra& extra : extras) {
            if (extra.kind == ExtraKind::tag) {
                _json.value(extra.value);
            }
        }
        _json.endArray();
    }

    void writeScope(std::string_view address, std::span<const Extra> extras) {
        const bool hasMore =
            std::ranges::find(extras, ExtraKind::furtherURL, &Extra::kind) != extras.end();
        if (address.empty() && !hasMore) {
            return;
        }
        _json.key("scope");
        _json.beginObject();
        _json.key("urls");
        _json.beginArray();
        if (!address.empty()) {
            _json.value(address);
        }
        for (const Extra& extra : extras) {
            if (extra.kind == ExtraKind::furtherURL) {
                _json.value(extra.value);
            }
        }
        _json.endArray();
        _json.key("androidApps");
        _json.beginArray();
        _json.endArray();
        _json.endObject();
    }

    void beginCredentials() {
        _json.key("credentials");
        _json.beginArray();
    }

    void beginCredential(std::string_view type) {
        _json.beginObject();
        _json.member("type", type);
    }

    void writeField(std::string_view name, std::string_view type, std::string_view value) {
        _json.key(name);
        _json.beginObject();
        _json.member("fieldType", type);
        _json.member("value", value);
        _json.endObject();
    }

    void writeFieldIfAny(std::string_view name, std::string_view type, std::string_view value) {
        if (!value.empty()) {
            writeField(name, type, value);
        }
    }

    void writeNote(std::string_view text) {
        beginCredential("note");
        writeField("content", "string", text);
        _json.endObject();
    }

    /// The date of a card, or its parts as custom fields if they are no whole month.
    void writeExpiry(const ImportedCardInfoProviding& card) {
        constexpr std::int64_t months = 12;
        constexpr std::int64_t firstYear = 1000;
        constexpr std::int64_t lastYear = 9999;

        const std::int64_t month = card.expirationMonth();
        const std::int64_t year = card.expirationYear();
        if (month >= 1 && month <= months && year >= firstYear && year <= lastYear) {
            writeField("expiryDate", "year-month", inDigits(year, 4) + "-" + inDigits(month, 2));
        } else {
            addNumber("expirationMonth", month != 0 ? std::optional(month) : std::nullopt);
            addNumber("expirationYear", year != 0 ? std::optional(year) : std::nullopt);
        }
        const std::int64_t day = card.expirationDay();
        addNumber("expirationDay", day != 0 ? std::optional(day) : std::nullopt);
    }

    /// Writes the extras that are left and the note, and ends the item.
    void end(std::string_view note, std::span<const Extra> extras) {
        for (std::size_t index = 0; index < extras.size();) {
            index += writeOneTimePassword(extras.subspan(index));
        }
        if (!note.empty()) {
            writeNote(note);
        }
        if (!_custom.empty()) {
            beginCredential("custom-fields");
            _json.key("fields");
            _json.beginArray();
            for (const CustomField& field : _custom) {
                _json.beginObject();
                _json.member("fieldType", field.type);
                _json.member("value", field.value);
                if (!field.label.empty()) {
                    _json.member("label", field.label);
                }
                _json.endObject();
            }
            _json.endArray();
            _json.endObject();
        }
        _json.endArray();
        _json.endObject();
    }

    /// Writes the first extra if it is a one-time password, and adds it to the custom fields if it
    /// has no other place. Returns how many extras that were: the parts of a password may follow
    /// it.
    std::size_t writeOneTimePassword(std::span<const Extra> extras) {
        const Extra& extra = extras.front();
        auto password = extra.kind == ExtraKind::oneTimePassword ? OneTimePassword::of(extra.value)
                                                                 : std::nullopt;
        if (!password) {
            addRest(extra);
            return 1;
        }
        std::size_t count = 1;
        while (count < extras.size() && extra.label == "totp" &&
               extras[count].kind == ExtraKind::customText && extras[count].label != "secret" &&
               password->set(extras[count].label, extras[count].value)) {
            ++count;
        }
        beginCredential("totp");
        _json.member("secret", password->secret);
        _json.member("period", password->period);
        _json.member("digits", password->digits);
        _json.member("algorithm", password->algorithm);
        if (!password->username.empty()) {
            _json.member("username", password->username);
        }
        if (!password->issuer.empty()) {
            _json.member("issuer", password->issuer);
        }
        _json.endObject();
        return count;
    }

    void addRest(const Extra& extra) {
        switch (extra.kind) {
            using enum ExtraKind;
        case furtherURL:
        case folder:
        case tag:
        case favourite:
        case createdAt:
        case modifiedAt:
            return; // written already
        case oneTimePassword:
        case customSecret:
            addCustom("concealed-string", extra);
            return;
        case email:
            addCustom(_takesEmails ? "email" : "string", extra);
            return;
        default:
            addCustom("string", extra);
        }
    }

    void addCustom(std::string_view type, const Extra& extra) {
        const std::string_view label = extra.label.empty() && extra.kind != ExtraKind::customText &&
                                               extra.kind != ExtraKind::customSecret
                                           ? identifier(extra.kind)
                                           : extra.label;
        _custom.push_back(
            {.type = type, .label = std::string(label), .value = std::string(extra.value)});
    }

    void addNumber(std::string_view label, std::optional<std::int64_t> number) {
        if (number) {
            _custom.push_back(
                {.type = "string", .label = std::string(label), .value = std::to_string(*number)});
        }
    }

    JSONText& _json;
    std::size_t _number = 0;
    bool _takesEmails = true; // of the current item
    std::vector<CustomField> _custom;
    std::map<std::string, std::vector<std::size_t>> _folders;
};

} // namespace

void CredentialExchangeFormat::finish(std::ostream& out) {
    constexpr std::string_view nobody;

    JSONText json;
    Items items(json);
    const auto flush = [&] {
        out << json.written(); // so that the text never stands in memory as a whole
        json.clear();
    };
    const auto writeList = [&](const ImportedExport& imported, auto recordsOf, auto extrasOf) {
        const auto& records = (*imported.records).*recordsOf;
        for (std::size_t i = 0; i < records.size(); ++i) {
            items.write(*records[i], (imported.extras.*extrasOf)(i));
            flush();
        }
    };
    json.beginObject();
    json.key("version");
    json.beginObject();
    json.member("major", 1);
    json.member("minor", 0);
    json.endObject();
    json.member("exporterRpId", "rellinor");
    json.member("exporterDisplayName", "Rellinor");
    json.member("timestamp", std::chrono::duration_cast<std::chrono::seconds>(
                                 std::chrono::system_clock::now().time_since_epoch())
                                 .count());
    json.key("accounts");
    json.beginArray();
    json.beginObject();
    json.member("id", identifierOf(0));
    json.member("username", nobody);
    json.member("email", nobody);
    json.key("items");
    json.beginArray();
    for (const ImportedExport& imported : imports()) {
        writeList(imported, &ImportedRecords::passwords, &Extras::ofPassword);
        writeList(imported, &ImportedRecords::notes, &Extras::ofNote);
        writeList(imported, &ImportedRecords::cards, &Extras::ofCard);
    }
    json.endArray();
    items.writeCollections();
    json.endObject();
    json.endArray();
    json.endObject();
    out << json.written() << '\n';
}

} // namespace Rellinor::Host
