#pragma once

#include <cstddef>
#include <string_view>

namespace Rellinor::Host {

/// A line of a text, without its line feed.
struct TextLine {
    std::size_t number = 0; ///< counted from 1
    std::string_view text;
};

/// The lines of a text, each ended by a line feed or by the end.
class TextLines {
public:
    explicit TextLines(std::string_view text) noexcept : _rest(text) {}

    /// Reads the next line into `line`; false if there is none.
    [[nodiscard]] bool next(TextLine& line) noexcept;

private:
    std::string_view _rest;
    std::size_t _number = 0;
};

/// The number of the line on which an offset into a text stands.
[[nodiscard]] std::size_t lineAt(std::string_view text, std::size_t offset) noexcept;

} // namespace Rellinor::Host
