#pragma once

#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "Private/Errors/ReadFailure.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/JSONNodes.hpp"
#include "Private/Proxies/JSONValue.hpp"
#include "Private/Text/JSONFailure.hpp"

namespace Rellinor {

/// The names of the members that are kept of a JSON text, fewer than 256. They outlive the
/// document.
using JSONKeys = std::span<const std::string_view>;

/// How much of a JSON text is kept.
enum class JSONExtent : std::uint8_t {
    listsOfObjects, ///< the members whose keys are known, and no list with anything but objects
    allLists,       ///< the members whose keys are known
    everything,
};

/// A parsed JSON text, as much of it as importers ask for. All of it is checked, but the rest is
/// not kept.
class JSONDocument {
public:
    /// Parses a text, or says why the text is not JSON.
    ///
    /// @param text    must outlive the document, which points into it
    /// @param keys    the members to keep
    /// @param memory  receives the texts that were written with escapes
    /// @throws std::bad_alloc
    [[nodiscard]] static std::expected<JSONDocument, JSONFailure>
    parsed(std::string_view text, JSONKeys keys, ImportMemory& memory,
           JSONExtent extent = JSONExtent::listsOfObjects);

    /// Parses several texts, as if they were the elements of one array, and keeps everything. A
    /// failure says in which of them, and at which offset of that one.
    ///
    /// @param next  gives the next text, and none at the end
    /// @throws std::bad_alloc
    [[nodiscard]] static std::expected<JSONDocument, JSONFailure>
    parsedEach(const std::function<std::optional<std::string_view>()>& next, JSONKeys keys,
               ImportMemory& memory);

    /// The object or array that the text is.
    [[nodiscard]] JSONValue root() const noexcept { return JSONValue(*_root); }

private:
    JSONDocument(JSONNodes nodes, const JSONNode& root) noexcept
        : _nodes(std::move(nodes)), _root(&root) {}

    JSONNodes _nodes;
    const JSONNode* _root; // moving the nodes leaves it in place
};

/// The same failure for a report.
///
/// @param text  what was parsed
[[nodiscard]] ReadFailure failureOf(const JSONFailure& failure, std::string_view text) noexcept;

} // namespace Rellinor
