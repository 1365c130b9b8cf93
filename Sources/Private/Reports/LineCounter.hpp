#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Rellinor {

/// The lines of a text by offsets, counted from where the last one was asked for: offsets that
/// hardly ever decrease take linear time together.
class LineCounter {
public:
    /// @param text     outlives this
    /// @param lineEnd  what ends its lines
    explicit LineCounter(std::string_view text, char lineEnd = '\n') noexcept
        : _text(text), _lineEnd(lineEnd) {}

    /// The line, from 1 on, in which the byte at an offset stands.
    [[nodiscard]] std::uint64_t operator()(std::uint64_t offset) noexcept {
        const std::size_t place = std::min<std::uint64_t>(offset, _text.size());
        if (place >= _place) {
            _line += lineEnds(_place, place);
        } else {
            _line -= lineEnds(place, _place);
        }
        _place = place;
        return _line;
    }

private:
    [[nodiscard]] std::uint64_t lineEnds(std::size_t begin, std::size_t end) const noexcept {
        return static_cast<std::uint64_t>(
            std::ranges::count(_text.substr(begin, end - begin), _lineEnd));
    }

    std::string_view _text;
    char _lineEnd;
    std::size_t _place = 0;
    std::uint64_t _line = 1;
};

} // namespace Rellinor
