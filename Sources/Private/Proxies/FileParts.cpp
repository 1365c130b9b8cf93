#include "Private/Proxies/FileParts.hpp"

#include <algorithm>
#include <string>

#include "Private/Proxies/ExportContents.hpp"

namespace Rellinor {

std::expected<FileParts, FailureReason> FileParts::of(const ExportFile& file) {
    if (!file.url()) {
        return FileParts(file.bytes());
    }
    auto opened = OpenFile::at(std::string(file.url()->path()));
    if (!opened) {
        return std::unexpected(reasonOf(opened.error()));
    }
    return FileParts(*std::move(opened));
}

std::optional<FilePart> FileParts::part(std::uint64_t position, std::size_t most) const {
    const std::uint64_t all = size();
    if (position >= all) {
        return FilePart({});
    }
    const std::size_t count = std::min<std::uint64_t>(all - position, most);
    if (!_file) {
        return FilePart(_bytes.substr(position, count));
    }
    WipedBuffer buffer(count);
    const auto read = _file->read(position, buffer.bytes());
    return read ? std::optional(FilePart(std::move(buffer), *read)) : std::nullopt;
}

} // namespace Rellinor
