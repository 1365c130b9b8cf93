#pragma once

#include <cstdint>
#include <string_view>

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
    std::string_view name;     ///< as a person knows the category; a literal
    OnePasswordShape shape = OnePasswordShape::other;
};

/// The category of that type name. One with the name "unknown kind" for any other.
[[nodiscard]] const OnePasswordCategory& onePasswordCategoryOf(std::string_view typeName) noexcept;

/// The category that a person knows by that name. One with the name "unknown kind" for any other.
[[nodiscard]] const OnePasswordCategory& onePasswordCategoryNamed(std::string_view name) noexcept;

/// The fields of an entry that are fields of a record.
enum class OnePasswordField : std::uint8_t {
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
    none, ///< any other
};

/// What a field is by its name, which is the same in every language.
[[nodiscard]] OnePasswordField onePasswordFieldOf(OnePasswordShape shape,
                                                  std::string_view name) noexcept;

/// Whether the product hides what stands in a field of that name.
[[nodiscard]] bool isHiddenInOnePassword(std::string_view name) noexcept;

} // namespace Rellinor
