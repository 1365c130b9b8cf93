#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Private/Importers/CSVLayout.hpp"
#include "Private/Importers/Importer.hpp"
#include "Private/Proxies/CSVTable.hpp"

namespace Rellinor {

/// The rows of a CSV file behind its header.
class CSVRows {
public:
    /// @param offset  of the table's text in the file's, which positions count from
    CSVRows(std::unique_ptr<CSVTable> table, std::ptrdiff_t offset) noexcept
        : _table(std::move(table)), _offset(offset) {}

    [[nodiscard]] std::span<const std::string_view> header() const noexcept {
        return _table->header();
    }

    [[nodiscard]] CSVTable::Iterator begin() const { return _table->begin(); }

    [[nodiscard]] static std::default_sentinel_t end() noexcept { return {}; }

    [[nodiscard]] std::size_t position() const noexcept {
        return static_cast<std::size_t>(static_cast<std::ptrdiff_t>(_table->position()) + _offset);
    }

private:
    std::unique_ptr<CSVTable> _table;
    std::ptrdiff_t _offset;
};

/// Reads a CSV file faithfully by the table of its layout. To be used for one file.
class NamedColumnsImporter final {
public:
    using RawRecord = std::span<const std::string_view>;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true, .cards = true};

    /// @param layout  a CSV file
    explicit NamedColumnsImporter(Layout layout) noexcept : _layout(layout) {}

    /// @param memory, reporter  outlive this
    /// @throws ReadError  the file cannot be read, or has not the columns of the layout
    [[nodiscard]] CSVRows read(const ExportFile& file, ImportMemory& memory, Reporter* reporter);

    // A row is asked first whether it is a password: that reads the row for all that is asked of it
    // later.

    [[nodiscard]] bool isPassword(const RawRecord& record);

    [[nodiscard]] bool isNote(const RawRecord& record) const noexcept;

    [[nodiscard]] bool isCard(const RawRecord& record) const noexcept;

    [[nodiscard]] Built<ImportedPassword> buildPassword(const RawRecord& record) const noexcept;

    [[nodiscard]] Built<ImportedNote> buildNote(const RawRecord& record) const;

    [[nodiscard]] Built<ImportedCard> buildCard(const RawRecord& record) const noexcept;

    void addExtras(const RawRecord& record, ExtrasTable& extras) const;

    void tellUnread(const RawRecord& record, Reporter& reporter) const noexcept;

    [[nodiscard]] Dropped whyNoKind(const RawRecord& record) const noexcept;

private:
    /// What the cells of a column of the file are.
    struct Column {
        CSVEntry cell; // but for its text
        std::string_view unread = {};
        CSVCellReader read = nullptr;

        /// Whether they are what they say.
        [[nodiscard]] bool isText() const noexcept { return read == nullptr && unread.empty(); }
    };

    [[nodiscard]] CSVRows rowsWithHeader(std::span<char> text);
    [[nodiscard]] CSVRows rowsWithoutHeader(std::span<char> text);
    [[nodiscard]] CSVRows rowsOf(std::span<char> text, std::ptrdiff_t offset, char separator);
    void readHeader(std::span<const std::string_view> header);
    void readRow(std::span<const std::string_view> row);
    void readCell(const Column& column, std::string_view cell);
    void readOtherCell(const Column& column, std::string_view text);
    void readKind();
    [[nodiscard]] bool isOf(CSVKind kind) const noexcept;

    Layout _layout;
    const CSVLayout* _table = nullptr; // of the layout's tables the one that fits the file
    ImportMemory* _memory = nullptr;
    Reporter* _reporter = nullptr;
    std::vector<Column> _columns; // of the file
    CSVItem _item;                // of the current row
};

} // namespace Rellinor
