#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// What an extra is. A number keeps its meaning for ever.
enum class ExtraKind : std::uint16_t { // NOLINT(performance-enum-size): it grows
    oneTimePassword = 1,               ///< an "otpauth:" URL or a bare secret, as it stands
    furtherURL = 2,
    furtherUserName = 3,
    email = 4,
    phone = 5,
    folder = 6, ///< one path, as it stands
    tag = 7,
    favourite = 8, ///< "true"
    archived = 9,  ///< "true"
    createdAt = 10,
    modifiedAt = 11,
    lastUsedAt = 12,
    customText = 13,
    customSecret = 14,
    other = 15,
};

/// A short name for machines, such as "oneTimePassword"; empty for a number that is no kind.
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(ExtraKind kind) noexcept;

/// What a record holds besides its fields. Both texts are UTF-8 and may hold secrets.
struct Extra {
    ExtraKind kind = ExtraKind::other; ///< what the extra is
    std::string_view label;            ///< as the product names it
    std::string_view value;            ///< as it stands in the file
};

struct RecordsBlock;

/// The extras of all records of an import, in the order of the file. Their texts stand in the block
/// of memory that the records share, and live as long as this or any of the records.
class RELLINOR_PUBLIC Extras {
public:
    /// None at all.
    Extras() = default;

    /// The extras of a login by its place in the list; none for a place that is no login's.
    [[nodiscard]] std::span<const Extra> ofPassword(std::size_t index) const noexcept;
    /// The same for a note.
    [[nodiscard]] std::span<const Extra> ofNote(std::size_t index) const noexcept;
    /// The same for a card.
    [[nodiscard]] std::span<const Extra> ofCard(std::size_t index) const noexcept;

private:
    friend struct RecordsBlock;

    std::shared_ptr<const RecordsBlock> _block;
};

} // namespace Rellinor
