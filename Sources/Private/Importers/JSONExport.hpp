#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include <Rellinor/ExportFile.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/ExportMembers.hpp"
#include "Private/Proxies/JSONDocument.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// Reads all of a JSON file, with its members by name.
///
/// @throws ReadError  the file cannot be read, or is not JSON: then with its line
[[nodiscard]] JSONDocument readJSON(const ExportFile& file, ImportMemory& memory,
                                    Reporter& reporter);

/// The text of a JSON file, without a byte-order mark.
///
/// @throws ReadError  the file cannot be read
[[nodiscard]] std::string_view jsonTextOf(const ExportFile& file, ImportMemory& memory,
                                          const Reporter& reporter);

/// Parses such a text, with all members by name.
///
/// @param text  stands in the memory
/// @throws ReadError  it is not JSON: then with its line
[[nodiscard]] JSONDocument parsedJSON(std::string_view text, ImportMemory& memory,
                                      Reporter& reporter);

/// The files of an archive or folder, within the limits of the reading.
///
/// @throws ReadError  there are none
[[nodiscard]] ExportMembers membersOf(const ExportFile& file, const Reporter& reporter);

/// Reads a JSON file in an archive or folder. The other files are told as unread.
///
/// @param beside  the name of a member that only describes the export
/// @throws ReadError  besides, there is no such file, or the archive contradicts itself
[[nodiscard]] JSONDocument readJSONMember(const ExportFile& archive, std::string_view member,
                                          ImportMemory& memory, Reporter& reporter,
                                          std::string_view beside = {});

/// The same for the one member whose name ends with ".json".
///
/// @throws ReadError  besides, there are several
[[nodiscard]] JSONDocument readOnlyJSONMember(const ExportFile& archive, ImportMemory& memory,
                                              Reporter& reporter);

/// What an export is at its top: an object that has one of these members, or no member at all.
///
/// @throws ReadError  it is something else
[[nodiscard]] JSONObject topOf(const JSONDocument& document,
                               std::span<const std::string_view> members);

/// The elements of the list that is a member; nothing if it is something else, which is told.
///
/// @param name  a literal
[[nodiscard]] std::optional<JSONElements> listIn(const JSONObject& object, std::string_view name,
                                                 Reporter& reporter);

/// The same for a list without which there are no entries: that it is missing is told, too.
[[nodiscard]] std::optional<JSONElements>
listOfEntriesIn(const JSONObject& object, std::string_view name, Reporter& reporter);

/// One entry of an export, whatever it is.
struct JSONEntry {
    JSONValue value;
    std::string_view folder = {};   ///< in which the entry stands; empty if the entry itself tells
    bool isCardBesideLogin = false; ///< whether this is the second record of one entry
};

/// The entries of an export together with the document that they stand in.
class JSONEntries {
public:
    /// Tells the reporter how many there are.
    JSONEntries(JSONDocument document, std::vector<JSONEntry> entries, Reporter& reporter) noexcept
        : _document(std::move(document)), _entries(std::move(entries)) {
        reporter.expect(_entries.size());
    }

    [[nodiscard]] auto begin() const noexcept { return _entries.begin(); }

    [[nodiscard]] auto end() const noexcept { return _entries.end(); }

private:
    JSONDocument _document;
    std::vector<JSONEntry> _entries;
};

} // namespace Rellinor
