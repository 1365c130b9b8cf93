#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <utility>

#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Importers/Tirel/TirelRecord.hpp"
#include "Private/Proxies/JSONDocument.hpp"

namespace Rellinor {

/// A Tirel export as a range of raw records, in the order of the file: the logins, then the notes,
/// then the cards. The records are views into the file's text.
///
/// The one reader of the format: an import builds its records from these, and
/// `TirelExportData::decode` its entries.
class TirelExportFile {
public:
    /// The members that are kept of the file.
    static constexpr JSONKeys keys = namesOfTirelExportMembers;

    /// Absent if one of the three lists is missing, or if an entry lacks a member that
    /// `TirelExportData` requires, or has one of another type. Other members are passed over.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static std::optional<TirelExportFile> decoded(JSONDocument document);

    class Iterator;

    [[nodiscard]] Iterator begin() const noexcept;

    [[nodiscard]] static std::default_sentinel_t end() noexcept { return {}; }

private:
    /// The entries of one type.
    struct List {
        TirelRecordType type = TirelRecordType::webPassword;
        JSONObjects entries;
    };

    using Lists = std::array<List, 3>;

    TirelExportFile(JSONDocument document, const Lists& lists) noexcept
        : _document(std::move(document)), _lists(lists) {}

    JSONDocument _document;
    Lists _lists; // of the document
};

/// Goes through one list after the other.
class TirelExportFile::Iterator {
public:
    using value_type = TirelRecord;
    using difference_type = std::ptrdiff_t;

    explicit Iterator(std::span<const List> lists) noexcept : _lists(lists) { skipEnds(); }

    [[nodiscard]] TirelRecord operator*() const noexcept { return {_type, *_entry}; }

    Iterator& operator++() noexcept {
        ++_entry;
        skipEnds();
        return *this;
    }

    void operator++(int) noexcept { ++*this; }

    [[nodiscard]] bool operator==(std::default_sentinel_t /*end*/) const noexcept {
        return _entry == _end;
    }

private:
    /// At the end of a list, goes on with the next one that is not empty.
    void skipEnds() noexcept {
        for (; _entry == _end && !_lists.empty(); _lists = _lists.subspan(1)) {
            _type = _lists.front().type;
            _entry = _lists.front().entries.begin();
            _end = _lists.front().entries.end();
        }
    }

    std::span<const List> _lists; // those that follow
    TirelRecordType _type = TirelRecordType::webPassword;
    JSONObjects::Iterator _entry;
    JSONObjects::Iterator _end;
};

inline TirelExportFile::Iterator TirelExportFile::begin() const noexcept {
    return Iterator(_lists);
}

} // namespace Rellinor
