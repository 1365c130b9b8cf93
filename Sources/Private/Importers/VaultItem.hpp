#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <Rellinor/Extras.hpp>

#include "Private/Importers/Importer.hpp"

namespace Rellinor {

/// What becomes of an entry.
enum class ItemShape : std::uint8_t {
    login,
    note,
    card,
    other, ///< a note that lists the values
    none,  ///< left out
};

/// What of an entry becomes a field of a record.
enum class ItemField : std::uint8_t {
    username,
    password,
    address,
    cardHolder,
    cardNumber,
    cvv,
    pin,
    expiry, ///< year and month in one
    expiryMonth,
    expiryYear,
    none, ///< anything else
};

/// One entry of a vault of many kinds, with all that a person has put into it. Its texts stand in
/// the import's memory.
struct VaultItem {
    using Fields = std::array<std::string_view, std::to_underlying(ItemField::none)>;

    ItemShape shape = ItemShape::other;
    std::string_view kind; ///< of shape `other`, as a person knows the kind; a literal
    LeftOutReason reason = LeftOutReason::empty; ///< of shape `none`
    std::string_view title;
    std::string_view note;
    Fields fields = {};
    std::vector<Extra> values;            ///< what else a person has put in
    std::vector<Extra> facts;             ///< addresses, folder, tags, times
    std::vector<std::string_view> unread; ///< the parts that it has and that never arrive; literals

    [[nodiscard]] std::string_view& operator[](ItemField field) noexcept {
        return fields[std::to_underlying(field)];
    }

    [[nodiscard]] std::string_view operator[](ItemField field) const noexcept {
        return fields[std::to_underlying(field)];
    }

    /// Whether a person has put in nothing but where the entry stands.
    [[nodiscard]] bool isEmpty() const noexcept;
};

/// How a product names the parts of a card's date; literals.
struct CardDateNames {
    std::string_view both = "expiry";
    std::string_view month = "expiryMonth";
    std::string_view year = "expiryYear";
};

// What an entry becomes. What looks wrong is told to the reporter, and what cannot be a field is
// put among the values.

[[nodiscard]] ImportedPassword passwordOf(const VaultItem& item) noexcept;

[[nodiscard]] ImportedNote noteOf(const VaultItem& item, ImportMemory& memory, Reporter& reporter);

[[nodiscard]] ImportedCard cardOf(VaultItem& item, const CardDateNames& names, Reporter& reporter);

} // namespace Rellinor
