#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace Rellinor {

/// A text of a JSON file, as it is written there between its quotes.
class JSONString {
public:
    /// @param written     valid; must outlive this, which is a view
    /// @param hasEscapes  whether there is a backslash in it
    JSONString(std::string_view written, bool hasEscapes) noexcept
        : _written(written), _hasEscapes(hasEscapes) {}

    [[nodiscard]] std::string_view written() const noexcept { return _written; }

    /// Whether the text is another one than is written.
    [[nodiscard]] bool hasEscapes() const noexcept { return _hasEscapes; }

    /// Writes the text and returns it.
    ///
    /// @param target  at least as large as what is written: no text is longer
    [[nodiscard]] std::string_view decoded(std::span<char> target) const noexcept;

private:
    std::string_view _written;
    bool _hasEscapes;
};

/// How many bytes the escape takes that a text begins with: a backslash and what follows it, or two
/// of these that spell one character. 0 if it is none.
[[nodiscard]] std::size_t lengthOfJSONEscape(std::string_view text) noexcept;

} // namespace Rellinor
