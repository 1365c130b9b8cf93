#include "Host/Source.hpp"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <ostream>
#include <vector>

#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

std::string_view pathOf(ImportSource source) {
    switch (source) {
        using enum ImportSource;
    case chrome:
        return "login database";
    case onePassword:
        return "1PIF export";
    case tirel:
        return "JSON export";
    case firefox:
        return "profile folder";
    default:
        return "CSV export";
    }
}

} // namespace

std::optional<ImportSource> sourceNamed(std::string_view name) {
    const auto found = std::ranges::find_if(allSources(), [&](ImportSource source) {
        return std::ranges::equal(identifier(source), name, sameLetter);
    });
    return found == allSources().end() ? std::nullopt : std::optional(*found);
}

std::span<const std::string_view> sourceNames() {
    static const auto names = [] {
        std::vector<std::string_view> all;
        std::ranges::transform(allSources(), std::back_inserter(all),
                               [](ImportSource source) { return identifier(source); });
        return all;
    }();
    return names;
}

void listSources(std::ostream& out) {
    for (const ImportSource source : allSources()) {
        out << std::left << std::setw(13) << identifier(source) << pathOf(source) << '\n';
    }
}

} // namespace Rellinor::Host
