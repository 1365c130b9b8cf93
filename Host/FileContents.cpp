#include "Host/FileContents.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <new>
#include <system_error>

#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

std::ifstream openedFile(const std::string& path) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file && errno == ENOMEM) {
        throw std::bad_alloc();
    }
    return file;
}

std::ifstream openedText(const std::string& path) {
    std::ifstream file = openedFile(path);
    std::array<char, byteOrderMark.size()> beginning{};
    if (!file) {
        return file;
    }
    file.read(beginning.data(), beginning.size());
    if (file.bad()) {
        file.clear(std::ios::failbit); // nothing can be read, but nobody is to be thrown at later
    } else if (!std::ranges::equal(beginning, byteOrderMark)) {
        file.clear(); // of the end, which a short file has reached
        file.seekg(0);
    }
    return file;
}

std::optional<std::string> contentsOf(const std::string& path, std::size_t limit) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream file = openedFile(path);
    if (error || !file) {
        return std::nullopt;
    }
    std::string contents(static_cast<std::size_t>(std::min<std::uintmax_t>(size, limit)), '\0');
    file.read(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (file.bad()) {
        return std::nullopt;
    }
    contents.resize(static_cast<std::size_t>(file.gcount()));
    return contents;
}

} // namespace Rellinor::Host
