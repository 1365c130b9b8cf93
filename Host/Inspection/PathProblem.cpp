#include "Host/Inspection/PathProblem.hpp"

#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace Rellinor::Host {

std::string pathProblem(const std::string& path, std::string_view file) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return "there is no such file";
    }
    if (std::filesystem::is_directory(status)) {
        return "it is a folder: give " + std::string(file);
    }
    if (::access(path.c_str(), R_OK) != 0) {
        return "the file may not be read: look at its permissions";
    }
    return {};
}

} // namespace Rellinor::Host
