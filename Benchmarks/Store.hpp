#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

#include <Rellinor/Layout.hpp>
#include <Rellinor/Models/ImportSource.hpp>

namespace Rellinor::Benchmarks {

enum class StoreFormat : std::uint8_t { csv, json, sqlite };

/// What is imported.
struct Store {
    ImportSource source;

    /// As an import takes it: that of Firefox is a folder.
    std::filesystem::path path;

    /// The file itself.
    std::filesystem::path file;

    StoreFormat format;

    /// As what `readExport` reads the same records; absent if the file holds others for it.
    std::optional<Layout> layout;
};

/// The store of a source, by the name of the source; absent if there is no such source.
[[nodiscard]] std::optional<Store> storeOf(std::string_view source,
                                           const std::filesystem::path& path);

} // namespace Rellinor::Benchmarks
