#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Rellinor::Tests {

/// A value of a JSON text, with all that is in it.
struct JSONReferenceValue {
    enum class Kind : std::uint8_t { object, array, string, number, boolean, null };

    Kind kind = Kind::null;
    std::string text = {}; ///< of a string, decoded; else as it is spelt
    std::vector<JSONReferenceValue> elements = {};
    std::vector<std::pair<std::string, JSONReferenceValue>> members = {}; ///< in their order

    /// The first member of that name, if this is an object that has one.
    [[nodiscard]] const JSONReferenceValue* member(std::string_view name) const;

    /// The text, if this is a string.
    [[nodiscard]] std::optional<std::string> string() const;

    /// The value, if this is a number with an integral value that fits.
    [[nodiscard]] std::optional<std::int64_t> integer() const;

    /// The elements, if this is an array of nothing but objects.
    [[nodiscard]] const std::vector<JSONReferenceValue>* objects() const;
};

/// Reads a JSON text as the grammar of RFC 8259 has it, rule by rule: strict UTF-8, an array or an
/// object at the top, at most 512 of them in each other. Absent if the text is anything else.
[[nodiscard]] std::optional<JSONReferenceValue> referenceJSON(std::string_view text);

/// The value of a number of the grammar, by moving its point digit by digit; absent if it is not
/// integral or does not fit.
[[nodiscard]] std::optional<std::int64_t> referenceInteger(std::string_view number);

/// Whether a text is a number of the grammar.
[[nodiscard]] bool isReferenceNumber(std::string_view text);

} // namespace Rellinor::Tests
