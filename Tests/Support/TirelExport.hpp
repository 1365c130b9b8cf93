#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Rellinor/Models/TirelExportData.hpp>

#include "Private/Importers/Tirel/TirelRecord.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// The text of a JSON object, member by member.
class Members {
public:
    Members(std::initializer_list<std::pair<std::string_view, std::string_view>> members)
        : _members(members.begin(), members.end()) {}

    /// The same with this member, given as JSON, in its place or at the end.
    [[nodiscard]] Members with(std::string_view name, std::string_view value) const;

    [[nodiscard]] Members without(std::string_view name) const;

    [[nodiscard]] std::string text() const;

private:
    std::vector<std::pair<std::string, std::string>> _members;
};

/// A JSON array of objects.
[[nodiscard]] std::string listOf(const std::vector<Members>& objects);

/// An export with nothing in it.
[[nodiscard]] const Members& emptyExport();

/// A whole login, note or card.
[[nodiscard]] const Members& aLogin();
[[nodiscard]] const Members& aNote();
[[nodiscard]] const Members& aCard();

/// The text of an export that holds this and no more.
[[nodiscard]] std::string exportOfLogin(const Members& login);
[[nodiscard]] std::string exportOfNote(const Members& note);
[[nodiscard]] std::string exportOfCard(const Members& card);

/// The same of a card with another date in it.
[[nodiscard]] std::string exportOfDate(const Members& date);

/// Exports in which all is well but one: a required member is missing, null or of another type, an
/// optional one of another type, or a list holds something other than objects.
[[nodiscard]] std::vector<std::string> rejectedTirelExports();

/// Whole exports that hold more than is known, or less than could be.
[[nodiscard]] std::vector<std::string> acceptedTirelExports();

/// What an import of these data gives.
[[nodiscard]] Outcome outcomeOf(const TirelExportData& data);

/// Random data: texts of whatever JSON escapes or Unicode has, integers of all sizes.
[[nodiscard]] TirelExportData randomTirelExportData(std::uint64_t seed);

inline constexpr auto allTirelRecordKeys = keysUpTo<TirelRecordKey::text>();

} // namespace Rellinor::Tests
