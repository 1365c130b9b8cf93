#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Host/Inspection/TextLines.hpp"

namespace Rellinor::Host {

/// Finds the lines on which the records of a 1PIF file begin. There is one record on each, unless
/// the file is damaged in a way that still makes a list of the whole.
class PIFRecordStarts {
public:
    /// @param text    of the file
    /// @param joined  the lines of it that begin with a brace, with a comma between two of them;
    ///                within brackets they are valid JSON
    PIFRecordStarts(std::string_view text, std::string_view joined) noexcept
        : _lines(text), _joined(joined) {}

    /// The number of the line on which the next record begins.
    [[nodiscard]] std::size_t next();

    /// The lines that do not hold one whole record, after all records were asked for.
    [[nodiscard]] std::vector<std::size_t> takeOddLines();

private:
    /// Moves behind the next object of the list; where it begins, or the end if there is none.
    std::size_t passObject() noexcept;

    /// From behind the first quote of a text, moves behind its last one.
    void passText() noexcept;

    /// Moves on to the next line that begins with a brace; false if there is none.
    bool takeLine();

    TextLines _lines;
    std::string_view _joined;
    std::size_t _position = 0; // behind the last object
    TextLine _line;            // the current one; before the first its number is 0
    std::size_t _begin = 0;    // where it stands among the joined ones
    std::size_t _behind = 0;   // where the next one does
    std::size_t _records = 0;  // that begin on it
    bool _isWhole = true;      // whether these begin where it does, and end on it
    std::vector<std::size_t> _oddLines;
};

} // namespace Rellinor::Host
