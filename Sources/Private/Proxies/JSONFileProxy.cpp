#include "Private/Proxies/JSONFileProxy.hpp"

#include "Platform/File.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

std::optional<std::string_view> JSONFileProxy::fileData() {
    if (!_fileData) {
        if (auto contents = readFile(_fileURL.path())) {
            const auto bytes = _memory.adopt(*std::move(contents));
            const std::string_view text(bytes.data(), bytes.size());
            _fileData = text.substr(lengthOfByteOrderMark(text));
        }
    }
    return _fileData;
}

std::optional<JSONDocument> JSONFileProxy::document(JSONKeys keys) {
    const auto text = fileData();
    return text ? JSONDocument::parsed(*text, keys, _memory) : std::nullopt;
}

} // namespace Rellinor
