#pragma once

#include <cstdint>
#include <string_view>

#include "Private/Importers/VaultItem.hpp"

namespace Rellinor {

/// What becomes of an entry.
enum class OnePasswordShape : std::uint8_t {
    webForm, ///< a login; the form's own marks tell user name and password
    login,   ///< a login; the names of the fields tell user name and password
    note,
    card,
    other, ///< a note that lists the fields
    folder,
};

/// A category of entries.
struct OnePasswordCategory {
    std::string_view typeName; ///< in a 1PIF file
    std::string_view number;   ///< in a 1PUX file; empty if there are none there
    std::string_view name;     ///< as a person knows the category; a literal
    OnePasswordShape shape = OnePasswordShape::other;
};

/// The category of that type name. One with the name "unknown kind" for any other.
[[nodiscard]] const OnePasswordCategory& onePasswordCategoryOf(std::string_view typeName) noexcept;

/// The category that a person knows by that name. One with the name "unknown kind" for any other.
[[nodiscard]] const OnePasswordCategory& onePasswordCategoryNamed(std::string_view name) noexcept;

/// The category of that number. One with the name "unknown kind" for any other.
[[nodiscard]] const OnePasswordCategory&
onePasswordCategoryNumbered(std::string_view number) noexcept;

/// What the category makes of an entry.
[[nodiscard]] ItemShape itemShapeOf(OnePasswordShape shape) noexcept;

/// What a field is by its name, which is the same in every language.
[[nodiscard]] ItemField onePasswordFieldOf(OnePasswordShape shape, std::string_view name) noexcept;

/// Whether the product hides what stands in a field of that name.
[[nodiscard]] bool isHiddenInOnePassword(std::string_view name) noexcept;

} // namespace Rellinor
