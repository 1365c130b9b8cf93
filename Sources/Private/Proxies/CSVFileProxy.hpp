#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include <Rellinor/ExportFile.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/CSVFileProxyType.hpp"
#include "Private/Proxies/ExportContents.hpp"

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
    /// @param memory     receives the text; outlives the proxy, and every cell is a view into it
    /// @param mostBytes  a larger file is not read
    CSVFileProxy(ExportFile file, ImportMemory& memory, std::uint64_t mostBytes = anyNumberOfBytes)
        : _file(std::move(file)), _memory(memory), _mostBytes(mostBytes) {}

    /// The file's text, without a byte-order mark. Absent if the file cannot be read or is not
    /// UTF-8; a later call then tries again. Once `records()` was called, escaped quotes and line
    /// ends have been rewritten in it.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::optional<std::span<char>> fileData();

    /// Why there is no text, once `fileData()` was absent.
    [[nodiscard]] FailureReason failure() const noexcept { return _failure; }

    [[nodiscard]] std::optional<CSVCursor> records() override;
    [[nodiscard]] std::optional<std::size_t> numberOfFields() override;
    [[nodiscard]] CSVKeyedRecords keyedRecords(std::span<const CSVHeader> expectedHeaders) override;

    /// The text that rows are cut from, in which lines are those of the file; empty before
    /// `records()` was called.
    [[nodiscard]] std::string_view text() const noexcept { return _records.value_or(""); }

    /// Rewrites escaped quotes and line ends of a text in place, so that a `CSVCursor` can cut rows
    /// from it; returns how much of it is left.
    [[nodiscard]] static std::string_view parseFileData(std::span<char> text) noexcept;

private:
    ExportFile _file;
    ImportMemory& _memory;
    std::uint64_t _mostBytes;
    std::optional<std::span<char>> _fileData;
    FailureReason _failure = FailureReason::none;
    std::optional<std::string_view> _records; // the text that rows are cut from
};

} // namespace Rellinor
