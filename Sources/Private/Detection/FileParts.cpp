#include "Private/Detection/FileParts.hpp"

#include <algorithm>

namespace Rellinor {

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
