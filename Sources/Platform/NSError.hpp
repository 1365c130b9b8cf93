#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// Why an import failed: a domain that names the kind of error, and a code within it.
///
/// An error never holds any of a record's contents. Copying and reading the domain and code neither
/// allocate nor throw, so an error about lack of memory can be handed over safely.
class RELLINOR_PUBLIC NSError {
public:
    /// @param domain  the kind; a text that outlives every copy of the error, in practice a literal
    /// @param code    the error of that kind
    constexpr NSError(std::string_view domain, std::int64_t code) noexcept
        : _domain(domain), _code(code) {}

    /// The kind of error, for example "Rellinor.JSONError".
    [[nodiscard]] constexpr std::string_view domain() const noexcept { return _domain; }

    /// The error within its domain: the ordinal of an enumeration's case, 1 for any other kind.
    [[nodiscard]] constexpr std::int64_t code() const noexcept { return _code; }

    /// Further details; always empty.
    // NOLINTNEXTLINE(readability-convert-member-functions-to-static): a property of an error
    [[nodiscard]] std::map<std::string, std::string> userInfo() const noexcept { return {}; }

    /// A sentence for people, made of the domain and the code alone.
    [[nodiscard]] std::string localizedDescription() const;

    /// Whether domain and code are the same.
    friend constexpr bool operator==(const NSError&, const NSError&) noexcept = default;

private:
    std::string_view _domain;
    std::int64_t _code;
};

} // namespace Rellinor
