#pragma once

#include <optional>

#include "Private/Importers/Importer.hpp"
#include "Private/Importers/KeePass/KeePassFork.hpp"
#include "Private/Proxies/CSVFileProxyType.hpp"
#include "Private/Proxies/CSVKeyedRecords.hpp"
#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor {

/// Imports the CSV exports of KeePass and KeePassXC, which it tells apart by their number of
/// columns. Remembers the fork that it recognised last.
class KeePassImporter final {
public:
    using RawRecord = CSVRecord;

    static constexpr RecordKinds kinds{.passwords = true};

    /// @throws TextError  the file cannot be read, is not UTF-8, or its first row has neither five
    ///                    nor six cells
    [[nodiscard]] CSVKeyedRecords read(const ExportFile& file, ImportMemory& memory,
                                       Reporter* reporter = nullptr);

    /// The same with any reader of the file.
    ///
    /// @throws TextError  and if the reader finds neither all columns nor the required ones
    [[nodiscard]] CSVKeyedRecords read(CSVFileProxyType& file);

    /// Every row is a login once a fork has been recognised, and none is before.
    [[nodiscard]] bool isPassword(const RawRecord& record) const noexcept;

    /// A login, by the columns of the fork; fails if a required column is missing, which is another
    /// thing than empty.
    [[nodiscard]] Built<ImportedPassword> buildPassword(const RawRecord& record) const noexcept;

    /// Tells which columns of a record never arrive.
    static void tellUnread(const RawRecord& record, Reporter& reporter);

    /// The fork that was recognised last; absent before the first. It stays when a later file has
    /// another number of columns or cannot be read.
    [[nodiscard]] std::optional<KeePassFork> fork() const noexcept { return _fork; }

private:
    [[nodiscard]] static Built<ImportedPassword>
    buildPasswordForKeepassOriginal(const RawRecord& record) noexcept;

    [[nodiscard]] static Built<ImportedPassword>
    buildPasswordForKeepassXC(const RawRecord& record) noexcept;

    std::optional<KeePassFork> _fork;
};

} // namespace Rellinor
