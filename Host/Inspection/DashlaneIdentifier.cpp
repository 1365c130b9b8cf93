#include "Host/Inspection/DashlaneIdentifier.hpp"

#include <algorithm>
#include <cstddef>

#include "Host/Characters.hpp"
#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::string_view shape = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";

bool isHexadecimal(char letter) noexcept {
    return (letter >= '0' && letter <= '9') ||
           (lowerCase(letter) >= 'a' && lowerCase(letter) <= 'f');
}

bool fits(char letter, char wanted) noexcept {
    return wanted == 'x' ? isHexadecimal(letter) : letter == wanted;
}

} // namespace

DashlaneIdentifier identifierIn(std::string_view cells) noexcept {
    for (std::size_t begin = cells.find('{'); begin < cells.size();
         begin = cells.find('{', begin + 1)) {
        if (std::ranges::equal(cells.substr(begin, shape.size()), shape, fits)) {
            // The search ends after as many UTF-16 units as there are characters, and identifiers
            // further on end even later.
            const std::string_view upToItsEnd = cells.substr(0, begin + shape.size());
            return numberOfUTF16Units(upToItsEnd) <= numberOfCharacters(cells)
                       ? DashlaneIdentifier::found
                       : DashlaneIdentifier::overlooked;
        }
    }
    return DashlaneIdentifier::none;
}

} // namespace Rellinor::Host
