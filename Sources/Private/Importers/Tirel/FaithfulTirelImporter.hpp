#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Private/Importers/Importer.hpp"
#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Importers/Tirel/TirelRecord.hpp"
#include "Private/Proxies/JSONDocument.hpp"

namespace Rellinor {

/// An entry of a Tirel export, whatever it is.
struct FaithfulTirelEntry {
    TirelRecordType type = TirelRecordType::webPassword; ///< of the list that it stands in
    JSONValue value;
};

/// The entries of a Tirel export together with the document that they stand in.
class FaithfulTirelEntries {
public:
    FaithfulTirelEntries(JSONDocument document, std::vector<FaithfulTirelEntry> entries) noexcept
        : _document(std::move(document)), _entries(std::move(entries)) {}

    [[nodiscard]] auto begin() const noexcept { return _entries.begin(); }

    [[nodiscard]] auto end() const noexcept { return _entries.end(); }

private:
    JSONDocument _document;
    std::vector<FaithfulTirelEntry> _entries;
};

/// Reads the JSON export of Tirel faithfully: an entry that lacks something arrives with what it
/// has. To be used for one file.
class FaithfulTirelImporter final {
public:
    using RawRecord = FaithfulTirelEntry;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true, .cards = true};

    /// A list that is missing or no list is told to the reporter, unless all three are.
    ///
    /// @param reporter  outlives this
    /// @throws TextError  the file cannot be read, is not JSON, or has none of the lists
    [[nodiscard]] FaithfulTirelEntries read(const ExportFile& file, ImportMemory& memory,
                                            Reporter* reporter);

    [[nodiscard]] static bool isPassword(const RawRecord& record) noexcept;
    [[nodiscard]] static bool isNote(const RawRecord& record) noexcept;
    [[nodiscard]] static bool isCard(const RawRecord& record) noexcept;

    // What an entry lacks, or has of another type, is empty, 0 or absent, and told to the reporter.
    // An entry without any text is left out, and so is what is no object.

    [[nodiscard]] Built<ImportedPassword> buildPassword(const RawRecord& record) const;
    [[nodiscard]] Built<ImportedNote> buildNote(const RawRecord& record) const;
    [[nodiscard]] Built<ImportedCard> buildCard(const RawRecord& record) const;

    static void tellUnread(const RawRecord& record, Reporter& reporter) noexcept;

private:
    [[nodiscard]] std::string_view text(const JSONObject& entry, TirelExportMember member) const;
    [[nodiscard]] std::optional<std::int64_t>
    integer(const JSONObject& entry, TirelExportMember member, bool isOptional = false) const;
    void otherType(TirelExportMember member) const noexcept;

    Reporter* _reporter = nullptr;
};

} // namespace Rellinor
