#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

namespace Rellinor {

/// The place of a case in its enumeration, which counts from 0.
template <typename Case>
    requires std::is_enum_v<Case>
[[nodiscard]] constexpr std::size_t indexOf(Case key) noexcept {
    return static_cast<std::size_t>(std::to_underlying(key));
}

/// An enumeration that names the columns or members of an export. The names stand beside it in one
/// array, in its order; `rawValue` is the name at the place of a key.
template <typename Key>
concept RecordKey = std::is_enum_v<Key> && requires(Key key) {
    { rawValue(key) } -> std::same_as<std::string_view>;
};

/// All keys of an enumeration, in its order.
///
/// @tparam last  the last of them
template <auto last>
[[nodiscard]] constexpr auto keysUpTo() noexcept {
    std::array<decltype(last), indexOf(last) + 1> keys{};
    for (std::size_t index = 0; index < keys.size(); ++index) {
        keys[index] = static_cast<decltype(last)>(index);
    }
    return keys;
}

/// These names and behind them one more.
template <std::size_t count>
[[nodiscard]] constexpr std::array<std::string_view, count + 1>
withOneMore(const std::array<std::string_view, count>& names, std::string_view oneMore) noexcept {
    std::array<std::string_view, count + 1> all{};
    std::ranges::copy(names, all.begin());
    all.back() = oneMore;
    return all;
}

} // namespace Rellinor
