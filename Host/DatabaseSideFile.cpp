#include "Host/DatabaseSideFile.hpp"

#include <filesystem>
#include <system_error>

namespace Rellinor::Host {

std::string databaseSideFile(const std::string& path, std::string_view suffix) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    std::string file = error ? path : target.string();
    return file += suffix;
}

} // namespace Rellinor::Host
