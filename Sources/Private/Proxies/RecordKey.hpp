#pragma once

#include <algorithm>
#include <array>
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

/// The names of all keys of an enumeration, each at its place, and behind them one more name.
///
/// @param all  the whole enumeration, in its order
template <RecordKey Key, std::size_t count>
[[nodiscard]] constexpr std::array<std::string_view, count + 1>
namesOf(const std::array<Key, count>& all, std::string_view oneMore) noexcept {
    std::array<std::string_view, count + 1> names{};
    std::ranges::transform(all, names.begin(), [](Key key) { return rawValue(key); });
    names.back() = oneMore;
    return names;
}

} // namespace Rellinor
