#pragma once

#include <cstdint>

namespace Rellinor {

/// How quotes are written inside a quoted cell.
enum class CSVQuotes : std::uint8_t {
    doubled,     ///< `""`; a backslash is a letter
    backslashed, ///< `""` or `\"`; `\\` is a backslash, and so is one before anything else
};

/// How the rows of a CSV text are written, apart from what the text tells by itself.
struct CSVDialect {
    char separator = ',';
    CSVQuotes quotes = CSVQuotes::doubled;
    bool hasHeader = true; ///< or else no cell is beyond it
};

} // namespace Rellinor
