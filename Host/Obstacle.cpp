#include "Host/Obstacle.hpp"

#include <filesystem>
#include <system_error>

#include <unistd.h>

#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

std::filesystem::file_type typeOf(const std::string& path) {
    std::error_code error;
    return std::filesystem::status(path, error).type();
}

bool isLink(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_symlink(path, error);
}

} // namespace

std::string obstacle(const std::string& path) {
    constexpr const char* nothingThere = "there is no such file or folder";

    if (path.contains('\0')) {
        return nothingThere; // no name has a NUL
    }
    switch (typeOf(path)) {
    case std::filesystem::file_type::regular:
        return ::access(path.c_str(), R_OK) == 0 ? ""
                                                 : "it may not be read: look at its permissions";
    case std::filesystem::file_type::directory:
        return {};
    case std::filesystem::file_type::not_found:
        return isLink(path) ? "it is a link that leads nowhere" : nothingThere;
    case std::filesystem::file_type::fifo:
        return "it is a pipe: save what comes out of it as a file first";
    case std::filesystem::file_type::none:
        return "it cannot be looked at";
    default:
        return "it is neither a file nor a folder";
    }
}

std::string obstacle(const std::string& path, ImportSource source) {
    const bool isFolder = typeOf(path) == std::filesystem::file_type::directory;
    const bool needsFolder = source == ImportSource::firefox;
    if (std::string general = obstacle(path); !general.empty() || isFolder == needsFolder) {
        return general;
    }
    return std::string(isFolder ? "it is a folder, and " : "it is a file, and ") +
           std::string(nameOf(source)) +
           (needsFolder ? " reads a profile folder" : " reads a file");
}

} // namespace Rellinor::Host
