#include "Private/Proxies/JSONFileProxy.hpp"

#include "Private/Text/UTF8.hpp"

namespace Rellinor {

std::optional<std::string_view> JSONFileProxy::fileData() {
    if (!_fileData) {
        auto contents = contentsOf(_file, {}, _mostBytes);
        if (!contents) {
            _failure = {.reason = contents.error(), .position = {}};
            return std::nullopt;
        }
        const auto bytes = _memory.adopt(*std::move(contents));
        const std::string_view text(bytes.data(), bytes.size());
        _fileData = text.substr(lengthOfByteOrderMark(text));
    }
    return _fileData;
}

std::optional<JSONDocument> JSONFileProxy::document(JSONKeys keys, JSONExtent extent) {
    const auto text = fileData();
    if (!text) {
        return std::nullopt;
    }
    auto parsed = JSONDocument::parsed(*text, keys, _memory, extent);
    if (!parsed) {
        _failure = failureOf(parsed.error(), *text);
        return std::nullopt;
    }
    _failure = {.reason = FailureReason::wrongShape, .position = {}}; // if nothing is made of it
    return *std::move(parsed);
}

} // namespace Rellinor
