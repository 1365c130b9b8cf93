#include "Host/Places.hpp"

#include <algorithm>

#include "Host/Counted.hpp"

namespace Rellinor::Host {

std::string described(const Places& places, PlaceUnit unit, std::size_t most) {
    const std::string file = places.member.empty() ? "" : " of " + std::string(places.member);
    if (places.first.empty()) {
        return places.count == 1 ? std::string(places.member)
                                 : counted(places.count, "time") + file;
    }
    std::string text(identifier(unit));
    text += places.count == 1 ? " " : "s ";
    const std::size_t shown = std::min(places.first.size(), most);
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) {
            text += i + 1 == places.count ? " and " : ", ";
        }
        text += std::to_string(places.first[i]);
    }
    if (places.count > shown) {
        text += " and " + std::to_string(places.count - shown) + " more";
    }
    return text + file;
}

} // namespace Rellinor::Host
