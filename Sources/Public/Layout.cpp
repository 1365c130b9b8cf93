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
    bool isRead;
};

using enum Layout;

/// In the order of the numbers.
constexpr auto names = std::array{
    LayoutName{lastPassCSV, "lastpass-csv", "LastPass CSV export", true},
    LayoutName{dashlaneCSV, "dashlane-csv", "Dashlane CSV file", true},
    LayoutName{dashlaneZip, "dashlane-zip", "Dashlane export (ZIP)", false},
    LayoutName{dashlanePositionalCSV, "dashlane-positional-csv", "old Dashlane CSV export", true},
    LayoutName{keePassCSV, "keepass-csv", "KeePass CSV (1.x) export", true},
    LayoutName{keePassXML, "keepass-xml", "KeePass XML export", true},
    LayoutName{keePassXCCSV, "keepassxc-csv", "KeePassXC CSV export", true},
    LayoutName{onePassword1PIF, "1password-1pif", "1Password 1PIF export", true},
    LayoutName{onePassword1PUX, "1password-1pux", "1Password 1PUX export", true},
    LayoutName{onePassword8CSV, "1password8-csv", "1Password 8 CSV export", true},
    LayoutName{onePassword7MacCSV, "1password7-mac-csv", "1Password 7 for Mac CSV export", true},
    LayoutName{onePassword7WindowsCSV, "1password7-windows-csv",
               "1Password 7 for Windows CSV export", true},
    LayoutName{chromiumCSV, "chromium-csv",
               "CSV export of Chrome, Edge or another Chromium browser", true},
    LayoutName{chromiumLogins, "chromium-logins", "login database of a Chromium browser", true},
    LayoutName{firefoxCSV, "firefox-csv", "Firefox CSV export", true},
    LayoutName{firefoxProfile, "firefox-profile", "Firefox profile", true},
    LayoutName{appleCSV, "apple-csv", "Apple Passwords or Safari CSV export", true},
    LayoutName{safariZip, "safari-zip", "Safari export (ZIP)", false},
    LayoutName{bitwardenCSV, "bitwarden-csv", "Bitwarden CSV export", true},
    LayoutName{bitwardenJSON, "bitwarden-json", "Bitwarden JSON export", true},
    LayoutName{bitwardenZip, "bitwarden-zip", "Bitwarden export (ZIP)", true},
    LayoutName{protonPassCSV, "protonpass-csv", "Proton Pass CSV export", true},
    LayoutName{protonPassJSON, "protonpass-json", "Proton Pass JSON export", true},
    LayoutName{protonPassZip, "protonpass-zip", "Proton Pass export (ZIP)", true},
    LayoutName{nordPassCSV, "nordpass-csv", "NordPass CSV export", true},
    LayoutName{enpassJSON, "enpass-json", "Enpass JSON export", true},
    LayoutName{enpassCSV, "enpass-csv", "Enpass CSV export", true},
    LayoutName{keeperJSON, "keeper-json", "Keeper JSON export", true},
    LayoutName{keeperCSV, "keeper-csv", "Keeper CSV export", true},
    LayoutName{roboFormCSV, "roboform-csv", "RoboForm CSV export", true},
    LayoutName{strongboxCSV, "strongbox-csv", "Strongbox CSV export", true},
    LayoutName{credentialExchangeJSON, "credential-exchange-json", "FIDO Credential Exchange file",
               true},
    LayoutName{tirelJSON, "tirel-json", "Tirel export", true},
    LayoutName{genericCSV, "generic-csv", "CSV file with usual column names", true},
    LayoutName{buttercupCSV, "buttercup-csv", "Buttercup CSV export", true},
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
    const LayoutName* const name = nameOf(layout);
    return name != nullptr && name->isRead && !isLeftOutOfBuild(layout);
}

} // namespace Rellinor
