#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "Private/Proxies/SQLiteRows.hpp"
#include "Tests/Support/Connection.hpp"

namespace Rellinor::Tests {

/// Bytes that are not a text.
struct Blob {
    std::string bytes;

    bool operator==(const Blob&) const = default;
};

/// What a row holds, copied out so that it can be compared and printed.
using Value = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;
using Values = std::map<std::string, Value>;

inline constexpr std::monostate absent;

std::ostream& operator<<(std::ostream& out, const Blob& blob);

[[nodiscard]] std::vector<Values> copyOf(const SQLiteRows& rows);

} // namespace Rellinor::Tests
