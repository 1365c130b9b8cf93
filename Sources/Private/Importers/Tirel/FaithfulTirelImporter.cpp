#include "Private/Importers/Tirel/FaithfulTirelImporter.hpp"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "Private/Extensions/String.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"

namespace Rellinor {

namespace {

using Member = TirelExportMember;
using enum TirelRecordType;

/// A whole file, of any shape.
struct AnyDocument {
    static constexpr JSONKeys keys = namesOfTirelExportMembers;
    static constexpr JSONExtent extent = JSONExtent::everything;

    [[nodiscard]] static std::optional<AnyDocument> decoded(JSONDocument document) {
        return AnyDocument{std::move(document)};
    }

    JSONDocument document;
};

struct List {
    Member member = Member::logins;
    TirelRecordType type = webPassword;
};

constexpr auto lists = std::array{
    List{.member = Member::logins, .type = webPassword},
    List{.member = Member::notes, .type = secureNote},
    List{.member = Member::cards, .type = creditCard},
};

constexpr std::string_view otherMembers = "other members";

std::unexpected<Dropped> dropped(LeftOutReason reason) noexcept {
    return std::unexpected(Dropped{.reason = reason, .field = {}});
}

bool isEmpty(std::initializer_list<std::string_view> texts) noexcept {
    return std::ranges::all_of(texts, &std::string_view::empty);
}

/// The members of an entry of that type; of a date those that only a date has.
bool belongsTo(TirelRecordType type, Member member) noexcept {
    using enum TirelExportMember;
    switch (type) {
    case webPassword:
        return member == color || member == custName || member == loginName || member == note ||
               member == pwd || member == pwdChange || member == url;
    case secureNote:
        return member == color || member == label || member == text;
    case creditCard:
        return member == cardNumber || member == custName || member == holderName ||
               member == cvv || member == pin || member == note || member == expirationDate;
    }
    return false;
}

} // namespace

FaithfulTirelEntries FaithfulTirelImporter::read(const ExportFile& file, ImportMemory& memory,
                                                 Reporter* reporter) {
    _reporter = reporter;
    JSONFileProxy proxy(file, memory, largestFileFor(reporter));
    auto any = proxy.containerObject<AnyDocument>();
    const auto top = any ? any->document.root().object() : std::nullopt;
    const auto listOf = [&](Member member) {
        const auto value = top ? (*top)[member] : std::nullopt;
        return value ? value->elements() : std::nullopt;
    };
    if (std::ranges::none_of(lists,
                             [&](const List& list) { return listOf(list.member).has_value(); })) {
        reportFailure(proxy, reporter);
        throw TextError("The provided JSON file has an unexpected format");
    }
    std::vector<FaithfulTirelEntry> entries;
    for (const List& list : lists) {
        const auto elements = listOf(list.member);
        if (!elements) {
            reporter->foundMany(FindingKind::valueOfOtherType, rawValue(list.member), 1);
            continue;
        }
        for (const JSONValue element : *elements) {
            entries.push_back({.type = list.type, .value = element});
        }
    }
    top->forEach([&](std::size_t key, const JSONValue& value) {
        if (value.isName() || (key > indexOf(Member::cards) && key < JSONNode::noKey)) {
            reporter->unread(otherMembers);
        }
    });
    return {std::move(any->document), std::move(entries)};
}

bool FaithfulTirelImporter::isPassword(const RawRecord& record) noexcept {
    return record.type == webPassword;
}

bool FaithfulTirelImporter::isNote(const RawRecord& record) noexcept {
    return record.type == secureNote;
}

bool FaithfulTirelImporter::isCard(const RawRecord& record) noexcept {
    return record.type == creditCard;
}

Built<ImportedPassword> FaithfulTirelImporter::buildPassword(const RawRecord& record) const {
    const auto entry = record.value.object();
    if (!entry) {
        return dropped(LeftOutReason::fieldOfOtherType);
    }
    const auto named = (*entry)[Member::custName];
    const bool isNamed = named && !named->isNull();
    const std::string_view service = isNamed ? text(*entry, Member::custName) : "";
    const std::string_view username = text(*entry, Member::loginName);
    const std::string_view password = text(*entry, Member::pwd);
    const std::string_view url = text(*entry, Member::url);
    const std::string_view note = text(*entry, Member::note);
    const auto color = integer(*entry, Member::color);
    const auto change = integer(*entry, Member::pwdChange, true);
    if (isEmpty({service, username, password, url, note})) {
        return dropped(LeftOutReason::empty);
    }
    const auto ifAny = [](std::string_view text) {
        return text.empty() ? std::nullopt : std::optional(text);
    };
    return ImportedPassword{username, password, url, ifAny(service), color, ifAny(note), change};
}

Built<ImportedNote> FaithfulTirelImporter::buildNote(const RawRecord& record) const {
    const auto entry = record.value.object();
    if (!entry) {
        return dropped(LeftOutReason::fieldOfOtherType);
    }
    const std::string_view title = text(*entry, Member::label);
    const std::string_view content = text(*entry, Member::text);
    const auto color = integer(*entry, Member::color);
    if (isEmpty({title, content})) {
        return dropped(LeftOutReason::empty);
    }
    return ImportedNote{color, title, content};
}

Built<ImportedCard> FaithfulTirelImporter::buildCard(const RawRecord& record) const {
    const auto entry = record.value.object();
    if (!entry) {
        return dropped(LeftOutReason::fieldOfOtherType);
    }
    const std::string_view cardNumber = text(*entry, Member::cardNumber);
    const std::string_view custName = text(*entry, Member::custName);
    const std::string_view holderName = text(*entry, Member::holderName);
    const std::string_view cvv = text(*entry, Member::cvv);
    const std::string_view pin = text(*entry, Member::pin);
    const std::string_view note = text(*entry, Member::note);
    const auto date = entry->object(Member::expirationDate);
    if (!date) {
        otherType(Member::expirationDate);
    }
    const auto part = [&](Member member) { return date ? integer(*date, member).value_or(0) : 0; };
    const std::int64_t day = part(Member::day);
    const std::int64_t month = part(Member::month);
    const std::int64_t year = part(Member::year);
    if (isEmpty({cardNumber, custName, holderName, cvv, pin, note})) {
        return dropped(LeftOutReason::empty);
    }
    return ImportedCard{cardNumber, custName, holderName, cvv, pin, note, day, month, year};
}

void FaithfulTirelImporter::tellUnread(const RawRecord& record, Reporter& reporter) noexcept {
    bool hasOther = false;
    record.value.object()->forEach([&](std::size_t key, const JSONValue& value) {
        hasOther = hasOther || value.isName() ||
                   (key < JSONNode::noKey && !belongsTo(record.type, static_cast<Member>(key)));
        const auto date = key == indexOf(Member::expirationDate) ? value.object() : std::nullopt;
        if (date) {
            date->forEach([&](std::size_t part, const JSONValue& /*value*/) {
                hasOther = hasOther || part < indexOf(Member::day) || part > indexOf(Member::year);
            });
        }
    });
    if (hasOther) {
        reporter.unread(otherMembers);
    }
}

std::string_view FaithfulTirelImporter::text(const JSONObject& entry, Member member) const {
    const auto text = entry.text(member);
    if (!text) {
        otherType(member);
    }
    return text.value_or("");
}

std::optional<std::int64_t> FaithfulTirelImporter::integer(const JSONObject& entry, Member member,
                                                           bool isOptional) const {
    const auto value = entry[member];
    const auto integer = value ? value->integer() : std::nullopt;
    if (!integer && !(isOptional && (!value || value->isNull()))) {
        otherType(member);
    }
    return integer;
}

void FaithfulTirelImporter::otherType(Member member) const noexcept {
    _reporter->found(FindingKind::valueOfOtherType, rawValue(member));
}

} // namespace Rellinor
