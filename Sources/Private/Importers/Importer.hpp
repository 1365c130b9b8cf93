#pragma once

#include <concepts>
#include <cstddef>
#include <expected>
#include <memory>
#include <ranges>
#include <string_view>
#include <utility>

#include <Rellinor/RecordsImporting.hpp>
#include <Rellinor/URL.hpp>

#include "Platform/WipedStack.hpp"
#include "Private/Errors/ThrownError.hpp"
#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Memory/ImportMemory.hpp"

namespace Rellinor {

/// What a builder makes of one raw record: the record, or why there is none. A failure leaves out
/// that raw record alone. A failure is returned, not thrown: throwing takes five times as long as
/// building, and a file may hold millions of bad rows.
template <typename Record>
using Built = std::expected<Record, std::string_view>;

/// The kinds of record that a source has.
struct RecordKinds {
    bool passwords = false;
    bool notes = false;
    bool cards = false;
};

template <typename Source>
concept ReadsRawRecords =
    requires(Source& source, const URL& url, ImportMemory& memory) {
        typename Source::RawRecord;
        { Source::kinds } -> std::convertible_to<RecordKinds>;
        { source.read(url, memory) } -> std::ranges::range;
    } &&
    std::convertible_to<std::ranges::range_reference_t<decltype(std::declval<Source&>().read(
                            std::declval<const URL&>(), std::declval<ImportMemory&>()))>,
                        const typename Source::RawRecord&>;

template <typename Source>
concept TellsPasswords = requires(Source& source, const typename Source::RawRecord& record) {
    { source.isPassword(record) } -> std::same_as<bool>;
};

template <typename Source>
concept BuildsPasswords = requires(Source& source, const typename Source::RawRecord& record) {
    { source.buildPassword(record) } -> std::same_as<Built<ImportedPassword>>;
};

template <typename Source>
concept TellsNotes = requires(Source& source, const typename Source::RawRecord& record) {
    { source.isNote(record) } -> std::same_as<bool>;
};

template <typename Source>
concept BuildsNotes = requires(Source& source, const typename Source::RawRecord& record) {
    { source.buildNote(record) } -> std::same_as<Built<ImportedNote>>;
};

template <typename Source>
concept TellsCards = requires(Source& source, const typename Source::RawRecord& record) {
    { source.isCard(record) } -> std::same_as<bool>;
};

template <typename Source>
concept BuildsCards = requires(Source& source, const typename Source::RawRecord& record) {
    { source.buildCard(record) } -> std::same_as<Built<ImportedCard>>;
};

/// An importer of one product. It has
///
/// - `RawRecord`, the type of its raw records;
/// - `read(url, memory)`, which returns a range of raw records in the file's order, or throws;
///   `memory` owns what they point at, and outlives the records that are built from them;
/// - `kinds`, the kinds of record that the source has;
/// - for each of these kinds a predicate (`isPassword(record)`, …) and a builder
///   (`buildPassword(record)`, …), and for no other kind, so that a name which is misspelt does not
///   compile.
template <typename Source>
concept Importer =
    ReadsRawRecords<Source> && TellsPasswords<Source> == Source::kinds.passwords &&
    BuildsPasswords<Source> == Source::kinds.passwords &&
    TellsNotes<Source> == Source::kinds.notes && BuildsNotes<Source> == Source::kinds.notes &&
    TellsCards<Source> == Source::kinds.cards && BuildsCards<Source> == Source::kinds.cards;

/// Appends what was built; a failure appends nothing.
template <typename Record>
void keep(const Built<Record>& built, ChunkedList<Record>& list) {
    if (built) {
        list.append(*built);
    }
}

/// Builds a raw record as the first kind that it is.
template <Importer Source>
void build(Source& source, const typename Source::RawRecord& record, RecordsBlock& block) {
    if constexpr (Source::kinds.passwords) {
        if (source.isPassword(record)) {
            keep(source.buildPassword(record), block.passwords);
            return;
        }
    }
    if constexpr (Source::kinds.notes) {
        if (source.isNote(record)) {
            keep(source.buildNote(record), block.notes);
            return;
        }
    }
    if constexpr (Source::kinds.cards) {
        if (source.isCard(record)) {
            keep(source.buildCard(record), block.cards);
        }
    }
}

/// What the file or folder at `url` holds.
// Kept out of line: what the import had on the stack lies beyond the end of the caller's frame.
template <Importer Source>
[[gnu::noinline]] RecordsResult assembledRecords(Source& source, const URL& url) noexcept {
    try {
        const auto block = std::make_shared<RecordsBlock>();
        for (const typename Source::RawRecord& record : source.read(url, block->memory)) {
            build(source, record, *block);
        }
        return RecordsBlock::deliver(block);
    } catch (...) {
        return std::unexpected(thrownError());
    }
}

/// Imports the file or folder at `url` and calls `onComplete` once, before it returns.
template <Importer Source>
void importRecords(Source& source, const URL& url, const RecordsCompletion& onComplete) {
    constexpr std::size_t stackOfImport = std::size_t{16} * 1024; // more than an import takes

    RecordsResult result = assembledRecords(source, url);
    wipeStack(stackOfImport);
    onComplete(std::move(result)); // outside every try: what the host throws is the host's
}

} // namespace Rellinor
