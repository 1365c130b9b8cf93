#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <memory>
#include <string_view>
#include <type_traits>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/RecordsImporting.hpp>
#include <Rellinor/URL.hpp>

#include "Platform/WipedStack.hpp"
#include "Private/Errors/ThrownError.hpp"
#include "Private/Importers/ExtrasTable.hpp"
#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// Why a raw record is left out.
struct Dropped {
    LeftOutReason reason = LeftOutReason::missingField;
    std::string_view field; ///< which one; a literal, or empty

    friend bool operator==(const Dropped&, const Dropped&) noexcept = default;
};

/// What a builder makes of one raw record: the record, or why there is none. A failure leaves out
/// that raw record alone. A failure is returned, not thrown: throwing takes five times as long as
/// building, and a file may hold millions of bad rows.
template <typename Record>
using Built = std::expected<Record, Dropped>;

/// The kinds of record that a source has.
struct RecordKinds {
    bool passwords = false;
    bool notes = false;
    bool cards = false;
};

template <typename Source>
concept ReadsRawRecords =
    requires(Source& source, const ExportFile& file, ImportMemory& memory, Reporter* reporter) {
        typename Source::RawRecord;
        { Source::kinds } -> std::convertible_to<RecordKinds>;
        {
            *source.read(file, memory, reporter).begin()
        } -> std::convertible_to<const typename Source::RawRecord&>;
    };

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

template <typename Source>
concept SaysWhatElse = requires(Source& source, const typename Source::RawRecord& record,
                                ExtrasTable& extras) { source.addExtras(record, extras); };

template <typename Source>
concept SaysWhatIsUnread = requires(Source& source, const typename Source::RawRecord& record,
                                    Reporter& reporter) { source.tellUnread(record, reporter); };

template <typename Source>
concept SaysWhyNoKind = requires(Source& source, const typename Source::RawRecord& record) {
    { source.whyNoKind(record) } -> std::same_as<Dropped>;
};

template <typename RawRecords>
concept HasPositions = requires(const RawRecords& records) {
    { records.position() } -> std::same_as<std::size_t>;
};

/// An importer of one product. It has
///
/// - `RawRecord`, the type of its raw records;
/// - `read(file, memory, reporter)`, which returns a range of raw records in the file's order, or
///   throws; `memory` owns what they point at, and outlives the records that are built from them;
///   `reporter` may be null. If places are not the numbers of the raw records, the range has a
///   `position()` of the raw record that was read last, and `read` tells the reporter what
///   positions are;
/// - `kinds`, the kinds of record that the source has;
/// - for each of these kinds a predicate (`isPassword(record)`, …) and a builder
///   (`buildPassword(record)`, …), and for no other kind, so that a name which is misspelt does not
///   compile;
/// - if it likes `addExtras(record, extras)`, which adds what a record holds besides its fields,
///   `tellUnread(record, reporter)`, which tells what of a record never arrives, and
///   `whyNoKind(record)`, which says why a raw record is none of the kinds.
template <typename Source>
concept Importer =
    ReadsRawRecords<Source> && TellsPasswords<Source> == Source::kinds.passwords &&
    BuildsPasswords<Source> == Source::kinds.passwords &&
    TellsNotes<Source> == Source::kinds.notes && BuildsNotes<Source> == Source::kinds.notes &&
    TellsCards<Source> == Source::kinds.cards && BuildsCards<Source> == Source::kinds.cards;

/// Reads one file with one importer, record by record.
template <Importer Source>
class Assembly {
public:
    /// @param reporter  may be null
    Assembly(Source& source, RecordsBlock& block, Reporter* reporter) noexcept
        : _source(source), _block(block), _reporter(reporter) {}

    void read(const ExportFile& file) {
        auto&& records = _source.read(file, _block.memory, _reporter);
        std::uint64_t number = 0;
        for (const RawRecord& record : records) {
            if (_reporter != nullptr) [[unlikely]] {
                ++number;
                if constexpr (HasPositions<std::remove_cvref_t<decltype(records)>>) {
                    _reporter->beginRecord(records.position());
                } else {
                    _reporter->beginRecord(number);
                }
            }
            build(record);
        }
    }

private:
    using RawRecord = typename Source::RawRecord;

    /// Builds a raw record as the first kind that it is.
    void build(const RawRecord& record) {
        if constexpr (Source::kinds.passwords) {
            if (_source.isPassword(record)) {
                keep(_source.buildPassword(record), _block.passwords, record);
                return;
            }
        }
        if constexpr (Source::kinds.notes) {
            if (_source.isNote(record)) {
                keep(_source.buildNote(record), _block.notes, record);
                return;
            }
        }
        if constexpr (Source::kinds.cards) {
            if (_source.isCard(record)) {
                keep(_source.buildCard(record), _block.cards, record);
                return;
            }
        }
        if (_reporter != nullptr) [[unlikely]] {
            leaveOut(whyNoKind(record));
        }
    }

    template <typename Record>
    void keep(const Built<Record>& built, RecordsBlock::List<Record>& list,
              [[maybe_unused]] const RawRecord& record) {
        if (!built) {
            if (_reporter != nullptr) [[unlikely]] {
                leaveOut(built.error());
            }
            return;
        }
        list.records.append(*built);
        if constexpr (SaysWhatIsUnread<Source>) {
            if (_reporter != nullptr) [[unlikely]] {
                _source.tellUnread(record, *_reporter);
            }
        }
        if constexpr (SaysWhatElse<Source>) {
            _source.addExtras(record, list.extras);
            list.extras.endRecord();
        }
    }

    Dropped whyNoKind([[maybe_unused]] const RawRecord& record) {
        if constexpr (SaysWhyNoKind<Source>) {
            return _source.whyNoKind(record);
        } else {
            return {.reason = LeftOutReason::otherKind, .field = {}};
        }
    }

    void leaveOut(const Dropped& dropped) { _reporter->leftOut(dropped.reason, dropped.field); }

    Source& _source;
    RecordsBlock& _block;
    Reporter* _reporter;
};

/// What `read` puts into a block. What goes wrong is told to the reporter, which may be null.
// Kept out of line: what the import had on the stack lies beyond the end of the caller's frame.
template <std::invocable<RecordsBlock&> Read>
[[gnu::noinline]] Assembled assembled(bool hasExtras, Reporter* reporter,
                                      const Read& read) noexcept {
    try {
        const auto block = std::make_shared<RecordsBlock>();
        read(*block);
        return RecordsBlock::deliver(block, hasExtras);
    } catch (...) {
        if (reporter != nullptr) {
            reporter->fail(thrownFailure());
        }
        return {.records = std::unexpected(thrownError()), .extras = {}};
    }
}

/// The same, and leaves nothing of what was read on the stack and in registers.
template <std::invocable<RecordsBlock&> Read>
Assembled readWith(bool hasExtras, Reporter* reporter, const Read& read) {
    Assembled result = assembled(hasExtras, reporter, read);
    wipeStack();
    return result;
}

/// Reads a file or folder with one importer.
template <Importer Source>
Assembled readWith(Source& source, const ExportFile& file, Reporter* reporter) {
    return readWith(SaysWhatElse<Source>, reporter, [&](RecordsBlock& block) {
        Assembly<Source>(source, block, reporter).read(file);
    });
}

} // namespace Rellinor
