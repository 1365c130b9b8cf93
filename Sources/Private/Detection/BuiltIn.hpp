#pragma once

#include <Rellinor/Layout.hpp>

namespace Rellinor {

// What whoever builds the library may leave out of it.
inline constexpr bool hasArchives = RELLINOR_ARCHIVES != 0;
inline constexpr bool hasXML = RELLINOR_XML != 0;

/// Whether a layout could be read if nothing had been left out.
[[nodiscard]] constexpr bool isLeftOutOfBuild(Layout layout) noexcept {
    switch (layout) {
        using enum Layout;
    case dashlaneZip:
    case onePassword1PUX:
    case safariZip:
    case bitwardenZip:
    case protonPassZip:
        return !hasArchives;
    case keePassXML:
        return !hasXML;
    default:
        return false;
    }
}

} // namespace Rellinor
