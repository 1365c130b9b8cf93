#pragma once

#include <cstddef>
#include <expected>
#include <memory>
#include <string_view>
#include <utility>

#include <Rellinor/RecordsImporting.hpp>
#include <Rellinor/URL.hpp>

#include "Platform/Fault.hpp"
#include "Platform/WipedStack.hpp"
#include "Private/Errors/ThrownError.hpp"
#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Memory/ImportMemory.hpp"

namespace Rellinor {

/// What a builder makes of one raw record: the record, or why there is none. The reason drops that
/// record only and reaches nobody, so it is returned rather than thrown: throwing costs so much
/// more than building that a file of bad rows would take many times as long as one of good rows.
template <typename Record>
using Built = std::expected<Record, std::string_view>;

/// What all source importers share. A source importer derives from it as `Importer<Itself>` and has
///
/// - `RawRecord`, the type of its raw records;
/// - `read(url, memory)`, which returns a range of them in file order, or throws; what they point
///   at is handed to `memory`, which outlives the records built from them;
/// - the builders `buildPassword(record)`, `buildNote(record)`, `buildCard(record)` of the kinds
///   that the source has, each returning a `Built`;
/// - its own predicates where the defaults below do not fit.
template <typename Source>
class Importer {
public:
    Importer(const Importer&) = delete;
    Importer& operator=(const Importer&) = delete;

    /// More than an import takes of the stack.
    static constexpr std::size_t stackOfImport = std::size_t{16} * 1024;

    /// Imports the file or folder at `url` and calls `onComplete` once, before it returns.
    void records(const URL& url, const RecordsCompletion& onComplete) {
        RecordsResult result = assembled(url);
        wipeStack(stackOfImport);
        onComplete(std::move(result)); // outside every try: what the host throws is the host's
    }

    // Defaults: every record is a password, and a kind that no predicate tells has no builder.

    [[nodiscard]] bool isPassword(const auto& /*record*/) const noexcept { return true; }

    [[nodiscard]] bool isNote(const auto& /*record*/) const noexcept { return false; }

    [[nodiscard]] bool isCard(const auto& /*record*/) const noexcept { return false; }

    [[nodiscard]] Built<ImportedPassword> buildPassword(const auto& /*record*/) const { fault(); }

    [[nodiscard]] Built<ImportedNote> buildNote(const auto& /*record*/) const { fault(); }

    [[nodiscard]] Built<ImportedCard> buildCard(const auto& /*record*/) const { fault(); }

private:
    friend Source;
    Importer() = default;
    ~Importer() = default;

    // Kept out of line: what it had on the stack lies beyond the caller's end.
    [[gnu::noinline]] RecordsResult assembled(const URL& url) noexcept {
        try {
            auto& source = static_cast<Source&>(*this);
            const auto block = std::make_shared<RecordsBlock>();
            for (const typename Source::RawRecord& record : source.read(url, block->memory)) {
                if (source.isPassword(record)) {
                    keep(source.buildPassword(record), block->passwords);
                } else if (source.isNote(record)) {
                    keep(source.buildNote(record), block->notes);
                } else if (source.isCard(record)) {
                    keep(source.buildCard(record), block->cards);
                }
            }
            return RecordsBlock::deliver(block);
        } catch (...) {
            return std::unexpected(thrownError());
        }
    }

    template <typename Record>
    static void keep(const Built<Record>& built, ChunkedList<Record>& list) {
        if (built) {
            list.append(*built);
        }
    }
};

} // namespace Rellinor
