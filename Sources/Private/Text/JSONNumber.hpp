#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Rellinor {

/// The value of a number that stands in a JSON text, if it is integral and fits; how it is spelt
/// does not matter: 1.0 and 10e-1 are 1. Exact, however many digits it has.
///
/// @param number  by the grammar of JSON
[[nodiscard]] std::optional<std::int64_t> integralValue(std::string_view number) noexcept;

} // namespace Rellinor
