#pragma once

#include <concepts>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

namespace Rellinor {

/// An enumeration that names the columns or members of an export.
template <typename Key>
concept RecordKey = std::is_enum_v<Key> && requires(Key key) {
    { rawValue(key) } -> std::same_as<std::string_view>;
};

/// The place of a key in its enumeration.
[[nodiscard]] constexpr std::size_t indexOf(RecordKey auto key) noexcept {
    return static_cast<std::size_t>(std::to_underlying(key));
}

} // namespace Rellinor
