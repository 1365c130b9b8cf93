#include "Benchmarks/Store.hpp"

#include <algorithm>
#include <array>

namespace Rellinor::Benchmarks {

namespace {

struct Source {
    std::string_view name;
    ImportSource source;
    StoreFormat format;
    std::optional<Layout> layout = {};
};

constexpr std::array<Source, 8> sources = {{
    {"chrome", ImportSource::chrome, StoreFormat::sqlite},
    {"dashlane", ImportSource::dashlane, StoreFormat::csv},
    {"firefox", ImportSource::firefox, StoreFormat::json},
    {"keePass", ImportSource::keePass, StoreFormat::csv, Layout::keePassCSV},
    {"keePassXC", ImportSource::keePassXC, StoreFormat::csv, Layout::keePassXCCSV},
    {"lastPass", ImportSource::lastPass, StoreFormat::csv, Layout::lastPassCSV},
    {"onePassword", ImportSource::onePassword, StoreFormat::json},
    {"tirel", ImportSource::tirel, StoreFormat::json},
}};

} // namespace

std::optional<Store> storeOf(std::string_view source, const std::filesystem::path& path) {
    const auto* const found = std::ranges::find(sources, source, &Source::name);
    if (found == sources.end()) {
        return std::nullopt;
    }
    if (found->source != ImportSource::firefox) {
        return Store{found->source, path, path, found->format, found->layout};
    }
    if (std::filesystem::exists(path / "logins.json")) {
        return Store{found->source, path, path / "logins.json", StoreFormat::json, {}};
    }
    return Store{found->source, path, path / "signons.sqlite", StoreFormat::sqlite, {}};
}

} // namespace Rellinor::Benchmarks
