#include "Public/ExportFile.hpp"

#include <utility>

namespace Rellinor {

ExportFile::ExportFile(URL url) : _url(std::move(url)) {}

ExportFile ExportFile::atPath(URL url) {
    return {std::move(url)};
}

ExportFile ExportFile::atPath(std::string_view path) {
    return {URL::fileURLWithPath(path)};
}

ExportFile ExportFile::inMemory(std::span<const char> bytes, std::string_view name) {
    ExportFile file;
    file._nameInMemory = name;
    file._bytes = bytes;
    return file;
}

std::string_view ExportFile::name() const noexcept {
    return _url ? _url->path() : _nameInMemory;
}

} // namespace Rellinor
