#include "Private/Importers/Firefox/FirefoxImportMetaData.hpp"

#include <string_view>
#include <utility>

#include "Platform/File.hpp"

namespace Rellinor {

namespace {

std::optional<URL> readable(const URL& directory, std::string_view name,
                            std::string_view extension) {
    URL file = directory.appendingPathComponent(name).appendingPathExtension(extension);
    return isReadableFile(file.path()) ? std::optional(std::move(file)) : std::nullopt;
}

} // namespace

FirefoxImportMetaData FirefoxImportMetaData::of(const URL& directory) {
    return {.logins = readable(directory, "logins", "json"),
            .signons = readable(directory, "signons", "sqlite")};
}

} // namespace Rellinor
