#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <Rellinor/ExportReader.hpp>

namespace Rellinor::Host {

/// The texts of a record, of each kind.
enum class Field : std::uint8_t {
    loginUsername,
    loginPassword,
    loginURL,
    loginService,
    loginNote,
    noteTitle,
    noteContent,
    cardNumber,
    cardName,
    cardHolder,
    cardCVV,
    cardPIN,
    cardNote,
};

/// Which door of the library the records come through.
enum class Door : std::uint8_t {
    first,  ///< the import of a source, quirks and all
    second, ///< the faithful reading
};

/// Whether passwords, card numbers, CVV, PIN and secrets among the extras are shown; through the
/// second door also notes, which hold such things too.
enum class Secrets : std::uint8_t {
    masked,
    revealed,
};

/// What of the records of one import is masked: secrets, and whatever stands beside them if a file
/// is not what it was read as.
class Masking {
public:
    Masking(Secrets secrets, Door door) noexcept;

    /// Masks every field that a secret of the faithful reading is all or a part of, in whatever
    /// record; every field at all if there is no faithful reading. Secrets that are revealed stay
    /// so.
    ///
    /// @param records  what was made of `file`
    void addMisplaced(const ImportedRecords& records, const ExportFile& file);

    /// A text as it is shown. The mask does not tell its length, only whether there is one.
    [[nodiscard]] std::string_view shown(Field field, std::string_view text) const noexcept;
    [[nodiscard]] std::optional<std::string_view>
    shown(Field field, const std::optional<std::string_view>& text) const noexcept;

    /// The same for the value of an extra.
    [[nodiscard]] std::string_view shown(const Extra& extra) const noexcept;

    /// Whether a field is masked.
    [[nodiscard]] bool masks(Field field) const noexcept;

private:
    Secrets _secrets;
    std::uint32_t _masked = 0; // a bit for each field
};

} // namespace Rellinor::Host
