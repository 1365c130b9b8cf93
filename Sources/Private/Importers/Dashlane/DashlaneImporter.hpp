#pragma once

#include "Private/Importers/Dashlane/DashlaneRows.hpp"
#include "Private/Importers/Importer.hpp"

namespace Rellinor {

/// Imports the CSV export of Dashlane, which is read by position. Has no state.
class DashlaneImporter final {
public:
    using RawRecord = DashlaneRow;

    static constexpr RecordKinds kinds{.passwords = true};

    /// All rows of the file.
    ///
    /// @throws TextError  the file cannot be read or is not UTF-8
    [[nodiscard]] static DashlaneRows read(const ExportFile& file, ImportMemory& memory,
                                           Reporter* reporter = nullptr);

    /// A row of more than four cells is a login unless an identifier in braces stands anywhere in
    /// it.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static bool isPassword(const RawRecord& record);

    /// Why a row is no login.
    [[nodiscard]] static Dropped whyNoKind(const RawRecord& record) noexcept;

    /// Tells which cells of a login never arrive.
    static void tellUnread(const RawRecord& record, Reporter& reporter);

    /// A login. Its password is the last cell but one, however many there are.
    [[nodiscard]] static Built<ImportedPassword> buildPassword(const RawRecord& record) noexcept;
};

} // namespace Rellinor
