#include "Platform/URL.hpp"

#include <filesystem>
#include <utility>

namespace Rellinor {

namespace {

constexpr std::string_view keptAsTheyAre = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                           "0123456789!$&'()*+,-./:=@_~";

} // namespace

URL::URL(std::string path) noexcept : _path(std::move(path)) {}

URL URL::fileURLWithPath(std::string_view path) {
    if (path.starts_with('/')) {
        return URL(std::string(path));
    }
    std::string absolute = std::filesystem::current_path().string();
    if (!absolute.ends_with('/')) {
        absolute += '/';
    }
    absolute += path;
    return URL(std::move(absolute));
}

URL URL::appendingPathComponent(std::string_view component) const {
    std::string path = _path;
    if (!path.ends_with('/') && !component.starts_with('/')) {
        path += '/';
    }
    path += component;
    return URL(std::move(path));
}

URL URL::appendingPathExtension(std::string_view extension) const {
    const std::size_t end = path().size();
    std::string path = _path;
    path.insert(end, extension);
    path.insert(end, 1, '.');
    return URL(std::move(path));
}

std::string_view URL::path() const noexcept {
    std::string_view path = _path;
    while (path.size() > 1 && path.ends_with('/')) {
        path.remove_suffix(1);
    }
    return path;
}

std::string URL::absoluteString() const {
    constexpr std::string_view hexadecimal = "0123456789ABCDEF";

    std::string text = "file://";
    text.reserve(text.size() + _path.size());
    for (const char character : _path) {
        if (keptAsTheyAre.contains(character)) {
            text += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            text += '%';
            text += hexadecimal[byte >> 4U];
            text += hexadecimal[byte & 0xFU];
        }
    }
    return text;
}

} // namespace Rellinor
