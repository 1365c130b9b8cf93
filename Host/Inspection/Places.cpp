#include "Host/Inspection/Places.hpp"

#include <algorithm>

namespace Rellinor::Host {

std::string describedPlaces(const std::vector<std::size_t>& places, std::string_view noun,
                            std::size_t most) {
    std::string text(noun);
    text += places.size() == 1 ? " " : "s ";
    const std::size_t shown = std::min(places.size(), most);
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) {
            text += i + 1 == places.size() ? " and " : ", ";
        }
        text += std::to_string(places[i]);
    }
    if (places.size() > shown) {
        text += " and " + std::to_string(places.size() - shown) + " more";
    }
    return text;
}

} // namespace Rellinor::Host
