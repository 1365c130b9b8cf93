#pragma once

#include <optional>
#include <string_view>

#include "Platform/RegularExpression.hpp"
#include "Platform/WipedBuffer.hpp"
#include "Private/Proxies/CSVCursor.hpp"

namespace Rellinor {

/// Looks in the rows of one import for an identifier in braces, such as
/// "{01234567-89AB-CDEF-0123-456789ABCDEF}", its letters in either case.
class DashlaneIdentifierSearch {
public:
    /// Whether the cells of a row, joined without anything between them, hold an identifier.
    ///
    /// @param cells   stands before the first cell of the row
    /// @param source  the part of the file's text that holds all of its cells
    /// @throws std::bad_alloc
    [[nodiscard]] bool finds(const CSVCursor& cells, std::string_view source) {
        return source.contains('{') && findsIn(joined(cells, source.size()));
    }

private:
    [[nodiscard]] bool findsIn(std::string_view text);
    [[nodiscard]] std::string_view joined(CSVCursor cells, std::size_t sizeOfSource);

    std::optional<RegularExpression> _pattern; // compiled when it is first needed
    WipedBuffer _joined;                       // of the row that was joined last
};

} // namespace Rellinor
