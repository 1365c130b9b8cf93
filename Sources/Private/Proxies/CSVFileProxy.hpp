#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include <Rellinor/URL.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/CSVFileProxyType.hpp"

namespace Rellinor {

/// Reads comma-separated files in a simple dialect of its own, which differs from RFC 4180:
///
/// - a double quote opens or closes a quoted section wherever it stands; commas and line feeds
///   inside one belong to the cell;
/// - a cell whose first and last character are double quotes loses these two and nothing else;
/// - a backslash before a double quote makes it a doubled quote;
/// - lines end with LF or CR LF; blank lines are left out; nothing is trimmed.
///
/// The file is read once, at first use, and rows are cut from its text as they are walked.
class CSVFileProxy final : public CSVFileProxyType {
public:
    /// Reads nothing yet.
    ///
    /// @param memory  receives the text; outlives the proxy, and every cell is a view into it
    CSVFileProxy(URL fileURL, ImportMemory& memory)
        : _fileURL(std::move(fileURL)), _memory(memory) {}

    /// The file's text, without a byte-order mark. Absent if the file cannot be read or is not
    /// UTF-8; a later call then tries again. Once `records()` was called, escaped quotes and line
    /// ends have been rewritten in it.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::optional<std::span<char>> fileData();

    [[nodiscard]] std::optional<CSVCursor> records() override;
    [[nodiscard]] std::optional<std::size_t> numberOfFields() override;
    [[nodiscard]] CSVKeyedRecords keyedRecords(std::span<const CSVHeader> expectedHeaders) override;

    /// Rewrites escaped quotes and line ends of a text in place, so that a `CSVCursor` can cut rows
    /// from it; returns how much of it is left.
    [[nodiscard]] static std::string_view parseFileData(std::span<char> text) noexcept;

private:
    URL _fileURL;
    ImportMemory& _memory;
    std::optional<std::span<char>> _fileData;
    std::optional<std::string_view> _records; // the text that rows are cut from
};

} // namespace Rellinor
