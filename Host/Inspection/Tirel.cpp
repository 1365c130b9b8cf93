#include "Host/Inspection/Inspectors.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Host/Counted.hpp"
#include "Host/FileContents.hpp"
#include "Host/Inspection/JSONProblem.hpp"
#include "Host/Inspection/JSONTree.hpp"
#include "Host/Inspection/Settled.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 20> words = {
    "logins",         "notes", "cards", "color", "custName",   "loginName",  "note", "pwd",
    "pwdChange",      "url",   "label", "text",  "cardNumber", "holderName", "cvv",  "pin",
    "expirationDate", "day",   "month", "year"};

/// What a member has to be.
enum class Type : std::uint8_t { text, integer, date, optionalText, optionalInteger };

struct Member {
    std::string_view name;
    JSONWord word;
    Type type;
};

consteval Member member(std::string_view name, Type type) {
    return {.name = name, .word = numberOf(name, words), .type = type};
}

constexpr std::array<Member, 7> loginMembers = {{
    member("color", Type::integer),
    member("custName", Type::optionalText),
    member("loginName", Type::text),
    member("note", Type::text),
    member("pwd", Type::text),
    member("pwdChange", Type::optionalInteger),
    member("url", Type::text),
}};

constexpr std::array<Member, 3> noteMembers = {{
    member("color", Type::integer),
    member("label", Type::text),
    member("text", Type::text),
}};

constexpr std::array<Member, 7> cardMembers = {{
    member("cardNumber", Type::text),
    member("custName", Type::text),
    member("holderName", Type::text),
    member("cvv", Type::text),
    member("pin", Type::text),
    member("note", Type::text),
    member("expirationDate", Type::date),
}};

constexpr std::array<Member, 3> dateMembers = {{
    member("day", Type::integer),
    member("month", Type::integer),
    member("year", Type::integer),
}};

struct List {
    std::string_view name;
    JSONWord word;
    std::span<const Member> members;
};

constexpr std::array<List, 3> lists = {{
    {.name = "logins", .word = numberOf("logins", words), .members = loginMembers},
    {.name = "notes", .word = numberOf("notes", words), .members = noteMembers},
    {.name = "cards", .word = numberOf("cards", words), .members = cardMembers},
}};

/// What is wrong with a member, without its name; empty if nothing is.
std::string_view flawOf(const std::optional<JSONValue>& value, Type type) {
    const bool isOptional = type == Type::optionalText || type == Type::optionalInteger;
    if (!value) {
        return isOptional ? "" : " is missing";
    }
    if (value->kind() == JSONKind::null) {
        return isOptional ? "" : " is null";
    }
    switch (type) {
    case Type::text:
    case Type::optionalText:
        return value->kind() == JSONKind::text ? "" : " is not a text";
    case Type::integer:
    case Type::optionalInteger:
        return value->kind() == JSONKind::integer ? "" : " is not an integer";
    case Type::date:
        return value->kind() == JSONKind::object ? "" : " is not an object";
    }
    return "";
}

/// The date in an entry; absent if its list has none.
std::optional<JSONValue> dateIn(const JSONValue& entry, std::span<const Member> members) {
    const bool hasDate = members.back().type == Type::date;
    return hasDate ? entry[members.back().word] : std::nullopt;
}

/// The first thing that is wrong with the members of an object, as a path from it; empty if nothing
/// is.
std::string flawOf(const JSONValue& object, std::span<const Member> members) {
    for (const Member& member : members) {
        if (const std::string_view flaw = flawOf(object[member.word], member.type); !flaw.empty()) {
            std::string path(".");
            path += member.name;
            path += flaw;
            return path;
        }
    }
    return {};
}

/// The same for an entry of a list, and for the date in it.
std::string flawOfEntry(const JSONValue& entry, std::span<const Member> members) {
    if (std::string flaw = flawOf(entry, members); !flaw.empty()) {
        return flaw;
    }
    const auto date = dateIn(entry, members);
    const std::string flaw = date ? flawOf(*date, dateMembers) : "";
    return flaw.empty() ? "" : ".expirationDate" + flaw;
}

/// The first thing that is wrong with a list; empty if nothing is.
std::string flawOf(const std::optional<JSONValue>& value, const List& list) {
    const std::string name(list.name);
    if (!value) {
        return "the member " + name + " is missing";
    }
    if (value->kind() != JSONKind::objects && value->kind() != JSONKind::array) {
        return "the member " + name + " is not a list";
    }
    std::size_t index = 0;
    const auto path = [&] { return name + '[' + std::to_string(index) + ']'; };
    // One element of another kind makes the list none, whatever stands before it.
    if (value->kind() == JSONKind::array) {
        for (auto entry = value->begin(); entry != value->end(); ++entry) {
            ++index;
        }
        return path() + " is not an object";
    }
    for (const JSONValue& entry : *value) {
        if (const std::string flaw = flawOfEntry(entry, list.members); !flaw.empty()) {
            return path() + flaw;
        }
        ++index;
    }
    return {};
}

/// The first thing that makes a document no export; empty if it is one.
std::string flawOf(const JSONValue& root) {
    if (root.kind() != JSONKind::object) {
        return "the file is not an object with the members logins, notes and cards";
    }
    for (const List& list : lists) {
        if (std::string flaw = flawOf(root[list.word], list); !flaw.empty()) {
            return flaw;
        }
    }
    return {};
}

/// Members of objects that do not arrive.
struct UnreadMembers {
    std::size_t others = 0;  ///< of names that are not known there
    std::size_t repeats = 0; ///< of names that stand before them in the same object

    void look(const JSONValue& object, std::span<const JSONWord> names) {
        others += object.count();
        for (const JSONWord name : names) {
            const std::size_t count = object.countOf(name);
            others -= count;
            repeats += count > 1 ? count - 1 : 0;
        }
    }

    void report(Inspection& inspection) const {
        if (repeats > 0) {
            inspection.wrong.push_back(
                {.text = counted(repeats, "member") +
                         " of a name that stands there before: only the first is read",
                 .places = {}});
        }
        if (others > 0) {
            inspection.notImported.push_back(
                {.text = counted(others, "member") + " of other names than Tirel's", .places = {}});
        }
    }
};

/// What the members of a kind of object, or the lists, are called.
std::vector<JSONWord> namesOf(const auto& parts) {
    std::vector<JSONWord> names;
    std::ranges::transform(parts, std::back_inserter(names),
                           [](const auto& part) { return part.word; });
    return names;
}

void inspectRecords(const JSONValue& root, const RecordsResult& result, Inspection& inspection) {
    std::size_t records = 0;
    UnreadMembers unread;
    unread.look(root, namesOf(lists));
    const std::vector<JSONWord> namesOfDate = namesOf(dateMembers);
    for (const List& list : lists) {
        const auto entries = root[list.word];
        records += entries->count();
        const std::vector<JSONWord> names = namesOf(list.members);
        for (const JSONValue& entry : *entries) {
            unread.look(entry, names);
            if (const auto date = dateIn(entry, list.members)) {
                unread.look(*date, namesOfDate);
            }
        }
    }
    unread.report(inspection);
    settleCount(inspection, records, result);
}

} // namespace

Inspection inspectTirel(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    inspection.unit = "record";
    inspection.place = "record";
    const auto contents = contentsOf(path);
    if (!contents) {
        return inspection;
    }
    const auto tree = parseJSONFile(*contents, words, inspection);
    if (!tree) {
        return inspection;
    }
    std::string flaw = flawOf(tree->root());
    if (flaw.empty() && result) {
        inspectRecords(tree->root(), result, inspection);
    } else if (!flaw.empty() && !result) {
        inspection.wrong.push_back({.text = std::move(flaw), .places = {}});
    }
    return inspection;
}

} // namespace Rellinor::Host
