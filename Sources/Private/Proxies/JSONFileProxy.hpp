#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include <Rellinor/ExportFile.hpp>

#include "Private/Errors/ReadFailure.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Proxies/JSONFileProxyType.hpp"

namespace Rellinor {

/// Reads a JSON file once, at first use.
class JSONFileProxy final : public JSONFileProxyType {
public:
    /// Reads nothing yet.
    ///
    /// @param memory     receives the texts; outlives the proxy and what it decodes
    /// @param mostBytes  a larger file is not read
    JSONFileProxy(ExportFile file, ImportMemory& memory, std::uint64_t mostBytes = anyNumberOfBytes)
        : _file(std::move(file)), _memory(memory), _mostBytes(mostBytes) {}

    /// Why the last object was absent, at an offset of the text if the text is not JSON.
    [[nodiscard]] const ReadFailure& failure() const noexcept { return _failure; }

    /// The text that was read; empty if there is none.
    [[nodiscard]] std::string_view text() const noexcept { return _fileData.value_or(""); }

private:
    [[nodiscard]] std::optional<JSONDocument> document(JSONKeys keys, JSONExtent extent) override;

    /// The file's bytes, without a byte-order mark; absent if it cannot be read, and a later call
    /// then tries again.
    [[nodiscard]] std::optional<std::string_view> fileData();

    ExportFile _file;
    ImportMemory& _memory;
    std::uint64_t _mostBytes;
    std::optional<std::string_view> _fileData;
    ReadFailure _failure;
};

} // namespace Rellinor
