#include "Host/Source.hpp"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>

#include "Host/Letters.hpp"

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

} // namespace

std::optional<ImportSource> sourceNamed(std::string_view name) {
    const auto found = std::ranges::find_if(descriptions, [&](const Description& candidate) {
        return std::ranges::equal(candidate.name, name, sameLetter);
    });
    return found == descriptions.end() ? std::nullopt : std::optional(found->source);
}

std::string_view nameOf(ImportSource source) {
    return std::ranges::find(descriptions, source, &Description::source)->name;
}

std::span<const std::string_view> sourceNames() {
    static constexpr auto names = [] {
        std::array<std::string_view, descriptions.size()> all;
        std::ranges::transform(descriptions, all.begin(), &Description::name);
        return all;
    }();
    return names;
}

void listSources(std::ostream& out) {
    for (const Description& description : descriptions) {
        out << std::left << std::setw(13) << description.name << description.path << '\n';
    }
}

} // namespace Rellinor::Host
