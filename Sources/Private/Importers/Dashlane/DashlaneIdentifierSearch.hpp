#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/WipedBuffer.hpp"
#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"
#include "Private/Proxies/CSVCursor.hpp"

namespace Rellinor {

/// Looks in the rows of one import for an identifier in braces.
class DashlaneIdentifierSearch {
public:
    /// Whether the cells of a row, joined without anything between them, hold an identifier.
    ///
    /// @param cells   stands before the first cell of the row
    /// @param source  the part of the file's text that holds all of its cells
    /// @throws std::bad_alloc
    [[nodiscard]] bool finds(const CSVCursor& cells, std::string_view source) {
        if (!source.contains('{')) {
            return false;
        }
        const std::string_view text = joined(cells, source.size());
        const auto identifier = firstIdentifier(text);
        return identifier && isInReach(*identifier, text);
    }

private:
    [[nodiscard]] static bool isInReach(std::string_view identifier,
                                        std::string_view text) noexcept;
    [[nodiscard]] std::string_view joined(CSVCursor cells, std::size_t sizeOfSource);

    WipedBuffer _joined; // of the row that was joined last
};

} // namespace Rellinor
