#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor::Tests {

/// Texts that are JSON, with an array or object at the top.
[[nodiscard]] std::span<const std::string_view> acceptedJSON();

/// Texts that are JSON only as part of another: single values.
[[nodiscard]] std::span<const std::string_view> singleJSONValues();

/// Texts that are not JSON, neither by themselves nor as the last value of another text.
[[nodiscard]] std::span<const std::string_view> rejectedJSON();

/// The array of these values.
[[nodiscard]] std::string arrayOf(std::initializer_list<std::string_view> values);

/// So many arrays, each the element of the one before.
[[nodiscard]] std::string nestedArrays(std::size_t depth);

/// So many objects, each the member of the one before.
[[nodiscard]] std::string nestedObjects(std::size_t depth);

/// Texts of 10 MB that open arrays or objects and close none.
[[nodiscard]] std::vector<std::string> endlessJSON();

/// An integer as it is spelt in a text.
struct JSONInteger {
    std::string_view text;
    std::int64_t value = 0;
};

/// Spellings of integers of 64 bits.
[[nodiscard]] std::span<const JSONInteger> acceptedIntegers();

/// The same, of so many digits behind a point or before an exponent that a floating-point number
/// cannot hold them.
[[nodiscard]] std::span<const JSONInteger> acceptedLongIntegers();

/// Values that are no integer of 64 bits. None of them is null.
[[nodiscard]] std::span<const std::string_view> rejectedIntegers();

/// Values that are no text. None of them is null.
[[nodiscard]] std::span<const std::string_view> rejectedStrings();

} // namespace Rellinor::Tests
