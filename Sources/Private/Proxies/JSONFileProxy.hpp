#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include <Rellinor/URL.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/JSONFileProxyType.hpp"

namespace Rellinor {

/// Reads a JSON file once, at first use.
class JSONFileProxy final : public JSONFileProxyType {
public:
    /// Reads nothing yet.
    ///
    /// @param memory  receives the texts; outlives the proxy and what it decodes
    JSONFileProxy(URL fileURL, ImportMemory& memory)
        : _fileURL(std::move(fileURL)), _memory(memory) {}

private:
    [[nodiscard]] std::optional<JSONDocument> document(JSONKeys keys) override;

    /// The file's bytes, without a byte-order mark; absent if it cannot be read, and a later call
    /// then tries again.
    [[nodiscard]] std::optional<std::string_view> fileData();

    URL _fileURL;
    ImportMemory& _memory;
    std::optional<std::string_view> _fileData;
};

} // namespace Rellinor
