#include "Public/Layout.hpp"

#include <algorithm>
#include <array>

#include "Private/Detection/BuiltIn.hpp"

namespace Rellinor {

namespace {

struct LayoutName {
    Layout layout;
    std::string_view identifier;
    std::string_view description;
};

using enum Layout;

/// In the order of the numbers.
constexpr auto names = std::array{
    LayoutName{lastPassCSV, "lastpass-csv", "LastPass CSV export"},
    LayoutName{dashlaneCSV, "dashlane-csv", "Dashlane CSV file"},
    LayoutName{dashlaneZip, "dashlane-zip", "Dashlane export (ZIP)"},
    LayoutName{dashlanePositionalCSV, "dashlane-positional-csv", "old Dashlane CSV export"},
    LayoutName{keePassCSV, "keepass-csv", "KeePass CSV (1.x) export"},
    LayoutName{keePassXML, "keepass-xml", "KeePass XML export"},
    LayoutName{keePassXCCSV, "keepassxc-csv", "KeePassXC CSV export"},
    LayoutName{onePassword1PIF, "1password-1pif", "1Password 1PIF export"},
    LayoutName{onePassword1PUX, "1password-1pux", "1Password 1PUX export"},
    LayoutName{onePassword8CSV, "1password8-csv", "1Password 8 CSV export"},
    LayoutName{onePassword7MacCSV, "1password7-mac-csv", "1Password 7 for Mac CSV export"},
    LayoutName{onePassword7WindowsCSV, "1password7-windows-csv",
               "1Password 7 for Windows CSV export"},
    LayoutName{chromiumCSV, "chromium-csv",
               "CSV export of Chrome, Edge or another Chromium browser"},
    LayoutName{chromiumLogins, "chromium-logins", "login database of a Chromium browser"},
    LayoutName{firefoxCSV, "firefox-csv", "Firefox CSV export"},
    LayoutName{firefoxProfile, "firefox-profile", "Firefox profile"},
    LayoutName{appleCSV, "apple-csv", "Apple Passwords or Safari CSV export"},
    LayoutName{safariZip, "safari-zip", "Safari export (ZIP)"},
    LayoutName{bitwardenCSV, "bitwarden-csv", "Bitwarden CSV export"},
    LayoutName{bitwardenJSON, "bitwarden-json", "Bitwarden JSON export"},
    LayoutName{bitwardenZip, "bitwarden-zip", "Bitwarden export (ZIP)"},
    LayoutName{protonPassCSV, "protonpass-csv", "Proton Pass CSV export"},
    LayoutName{protonPassJSON, "protonpass-json", "Proton Pass JSON export"},
    LayoutName{protonPassZip, "protonpass-zip", "Proton Pass export (ZIP)"},
    LayoutName{nordPassCSV, "nordpass-csv", "NordPass CSV export"},
    LayoutName{enpassJSON, "enpass-json", "Enpass JSON export"},
    LayoutName{enpassCSV, "enpass-csv", "Enpass CSV export"},
    LayoutName{keeperJSON, "keeper-json", "Keeper JSON export"},
    LayoutName{keeperCSV, "keeper-csv", "Keeper CSV export"},
    LayoutName{roboFormCSV, "roboform-csv", "RoboForm CSV export"},
    LayoutName{strongboxCSV, "strongbox-csv", "Strongbox CSV export"},
    LayoutName{credentialExchangeJSON, "credential-exchange-json", "FIDO Credential Exchange file"},
    LayoutName{tirelJSON, "tirel-json", "Tirel export"},
    LayoutName{genericCSV, "generic-csv", "CSV file with usual column names"},
    LayoutName{buttercupCSV, "buttercup-csv", "Buttercup CSV export"},
};

constexpr auto layouts = [] {
    std::array<Layout, names.size()> all{};
    std::ranges::transform(names, all.begin(), &LayoutName::layout);
    return all;
}();

const LayoutName* nameOf(Layout layout) noexcept {
    const auto* const found = std::ranges::find(names, layout, &LayoutName::layout);
    return found != names.end() ? found : nullptr;
}

} // namespace

std::span<const Layout> allLayouts() noexcept {
    return layouts;
}

std::string_view identifier(Layout layout) noexcept {
    const LayoutName* const name = nameOf(layout);
    return name != nullptr ? name->identifier : std::string_view();
}

std::optional<Layout> layoutWithIdentifier(std::string_view identifier) noexcept {
    const auto* const found = std::ranges::find(names, identifier, &LayoutName::identifier);
    return found != names.end() ? std::optional(found->layout) : std::nullopt;
}

std::string_view description(Layout layout) noexcept {
    const LayoutName* const name = nameOf(layout);
    return name != nullptr ? name->description : std::string_view();
}

bool isRead(Layout layout) noexcept {
    return nameOf(layout) != nullptr && !isLeftOutOfBuild(layout);
}

} // namespace Rellinor
