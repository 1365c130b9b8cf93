#pragma once

#include <optional>
#include <span>
#include <string_view>

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor::Host {

/// The first value of the first row that a query gives, as a number; absent if there is no row or
/// the query fails.
///
/// @param arguments  texts for ?1 and so on
/// @throws std::bad_alloc
[[nodiscard]] std::optional<int> firstNumber(::sqlite3& connection, std::string_view query,
                                             std::span<const std::string_view> arguments = {});

} // namespace Rellinor::Host
