#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "Platform/WipedBuffer.hpp"
#include "Private/Proxies/CSVCursor.hpp"

namespace Rellinor {

/// The first identifier in braces, such as "{01234567-89AB-CDEF-0123-456789ABCDEF}", its letters in
/// either case, as a part of `text`; absent if there is none.
[[nodiscard]] std::optional<std::string_view> firstIdentifier(std::string_view text) noexcept;

/// Looks in the rows of one import for an identifier in braces.
class DashlaneIdentifierSearch {
public:
    /// Whether the cells of a row, joined without anything between them, hold an identifier.
    ///
    /// @param cells   stands before the first cell of the row
    /// @param source  the part of the file's text that holds all of its cells
    /// @throws std::bad_alloc
    [[nodiscard]] bool finds(const CSVCursor& cells, std::string_view source) {
        return source.contains('{') && findsInJoined(cells, source.size());
    }

private:
    [[nodiscard]] bool findsInJoined(const CSVCursor& cells, std::size_t sizeOfSource);
    [[nodiscard]] std::string_view joined(CSVCursor cells, std::size_t sizeOfSource);

    WipedBuffer _joined; // the row that was joined last
};

} // namespace Rellinor
