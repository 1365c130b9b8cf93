/// @file
/// The list of layouts, for C and C++: the one place where a new one is entered.
#pragma once

// NOLINTBEGIN(cppcoreguidelines-macro-usage): a list that two languages read
// clang-format off

/// Every layout: LAYOUT(number, name, nameInC, identifier, description), or CSV_LAYOUT of the
/// same for a CSV file whose columns are described by tables. A number keeps its meaning for ever;
/// a new layout gets the next.
#define RELLINOR_LAYOUTS(LAYOUT, CSV_LAYOUT) \
    CSV_LAYOUT(1, lastPassCSV, LAST_PASS_CSV, "lastpass-csv", "LastPass CSV export") \
    CSV_LAYOUT(2, dashlaneCSV, DASHLANE_CSV, "dashlane-csv", "Dashlane CSV file") \
    LAYOUT(3, dashlaneZip, DASHLANE_ZIP, "dashlane-zip", "Dashlane export (ZIP)") \
    CSV_LAYOUT(4, dashlanePositionalCSV, DASHLANE_POSITIONAL_CSV, "dashlane-positional-csv", "old Dashlane CSV export") \
    CSV_LAYOUT(5, keePassCSV, KEE_PASS_CSV, "keepass-csv", "KeePass CSV (1.x) export") \
    LAYOUT(6, keePassXML, KEE_PASS_XML, "keepass-xml", "KeePass XML export") \
    CSV_LAYOUT(7, keePassXCCSV, KEE_PASS_XC_CSV, "keepassxc-csv", "KeePassXC CSV export") \
    LAYOUT(8, onePassword1PIF, ONE_PASSWORD_1PIF, "1password-1pif", "1Password 1PIF export") \
    LAYOUT(9, onePassword1PUX, ONE_PASSWORD_1PUX, "1password-1pux", "1Password 1PUX export") \
    CSV_LAYOUT(10, onePassword8CSV, ONE_PASSWORD_8_CSV, "1password8-csv", "1Password 8 CSV export") \
    CSV_LAYOUT(11, onePassword7MacCSV, ONE_PASSWORD_7_MAC_CSV, "1password7-mac-csv", "1Password 7 for Mac CSV export") \
    CSV_LAYOUT(12, onePassword7WindowsCSV, ONE_PASSWORD_7_WINDOWS_CSV, "1password7-windows-csv", "1Password 7 for Windows CSV export") \
    CSV_LAYOUT(13, chromiumCSV, CHROMIUM_CSV, "chromium-csv", "CSV export of Chrome, Edge or another Chromium browser") \
    LAYOUT(14, chromiumLogins, CHROMIUM_LOGINS, "chromium-logins", "login database of a Chromium browser") \
    CSV_LAYOUT(15, firefoxCSV, FIREFOX_CSV, "firefox-csv", "Firefox CSV export") \
    LAYOUT(16, firefoxProfile, FIREFOX_PROFILE, "firefox-profile", "Firefox profile") \
    CSV_LAYOUT(17, appleCSV, APPLE_CSV, "apple-csv", "Apple Passwords or Safari CSV export") \
    LAYOUT(18, safariZip, SAFARI_ZIP, "safari-zip", "Safari export (ZIP)") \
    CSV_LAYOUT(19, bitwardenCSV, BITWARDEN_CSV, "bitwarden-csv", "Bitwarden CSV export") \
    LAYOUT(20, bitwardenJSON, BITWARDEN_JSON, "bitwarden-json", "Bitwarden JSON export") \
    LAYOUT(21, bitwardenZip, BITWARDEN_ZIP, "bitwarden-zip", "Bitwarden export (ZIP)") \
    CSV_LAYOUT(22, protonPassCSV, PROTON_PASS_CSV, "protonpass-csv", "Proton Pass CSV export") \
    LAYOUT(23, protonPassJSON, PROTON_PASS_JSON, "protonpass-json", "Proton Pass JSON export") \
    LAYOUT(24, protonPassZip, PROTON_PASS_ZIP, "protonpass-zip", "Proton Pass export (ZIP)") \
    CSV_LAYOUT(25, nordPassCSV, NORD_PASS_CSV, "nordpass-csv", "NordPass CSV export") \
    LAYOUT(26, enpassJSON, ENPASS_JSON, "enpass-json", "Enpass JSON export") \
    CSV_LAYOUT(27, enpassCSV, ENPASS_CSV, "enpass-csv", "Enpass CSV export") \
    LAYOUT(28, keeperJSON, KEEPER_JSON, "keeper-json", "Keeper JSON export") \
    CSV_LAYOUT(29, keeperCSV, KEEPER_CSV, "keeper-csv", "Keeper CSV export") \
    CSV_LAYOUT(30, roboFormCSV, ROBO_FORM_CSV, "roboform-csv", "RoboForm CSV export") \
    CSV_LAYOUT(31, strongboxCSV, STRONGBOX_CSV, "strongbox-csv", "Strongbox CSV export") \
    LAYOUT(32, credentialExchangeJSON, CREDENTIAL_EXCHANGE_JSON, "credential-exchange-json", "FIDO Credential Exchange file") \
    LAYOUT(33, tirelJSON, TIREL_JSON, "tirel-json", "Tirel export") \
    CSV_LAYOUT(34, genericCSV, GENERIC_CSV, "generic-csv", "CSV file with usual column names") \
    CSV_LAYOUT(35, buttercupCSV, BUTTERCUP_CSV, "buttercup-csv", "Buttercup CSV export")

// clang-format on
// NOLINTEND(cppcoreguidelines-macro-usage)
