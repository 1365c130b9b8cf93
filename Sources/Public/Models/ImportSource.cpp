#include "Public/Models/ImportSource.hpp"

namespace Rellinor {

std::span<const ImportSource> allSources() noexcept {
    using enum ImportSource;
    static constexpr ImportSource sources[] = {chrome, lastPass, dashlane,  onePassword,
                                               tirel,  keePass,  keePassXC, firefox};
    return sources;
}

std::string_view identifier(ImportSource source) noexcept {
    switch (source) {
        using enum ImportSource;
    case chrome:
        return "chrome";
    case lastPass:
        return "lastPass";
    case dashlane:
        return "dashlane";
    case onePassword:
        return "onePassword";
    case tirel:
        return "tirel";
    case keePass:
        return "keePass";
    case keePassXC:
        return "keePassXC";
    case firefox:
        return "firefox";
    }
    return {};
}

} // namespace Rellinor
