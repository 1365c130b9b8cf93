#include "Host/Source.hpp"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>

namespace Rellinor::Host {

namespace {

struct Description {
    ImportSource source;
    std::string_view name;
    std::string_view path;
};

constexpr std::array<Description, 8> descriptions = {{
    {ImportSource::chrome, "chrome", "login database"},
    {ImportSource::lastPass, "lastPass", "CSV export"},
    {ImportSource::dashlane, "dashlane", "CSV export"},
    {ImportSource::onePassword, "onePassword", "1PIF export"},
    {ImportSource::tirel, "tirel", "JSON export"},
    {ImportSource::keePass, "keePass", "CSV export"},
    {ImportSource::keePassXC, "keePassXC", "CSV export"},
    {ImportSource::firefox, "firefox", "profile folder"},
}};

constexpr char lowerCase(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

} // namespace

std::optional<ImportSource> sourceNamed(std::string_view name) {
    const auto found = std::ranges::find_if(descriptions, [&](const Description& candidate) {
        return std::ranges::equal(candidate.name, name, {}, lowerCase, lowerCase);
    });
    return found == descriptions.end() ? std::nullopt : std::optional(found->source);
}

std::string_view nameOf(ImportSource source) {
    return std::ranges::find(descriptions, source, &Description::source)->name;
}

void listSources(std::ostream& out) {
    for (const Description& description : descriptions) {
        out << std::left << std::setw(13) << description.name << description.path << '\n';
    }
}

} // namespace Rellinor::Host
