#include "Fuzzers/Driver/Imports.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

using Tests::copyOf;

RecordsResult resultOf(RecordsImporter& importer, ImportSource source, std::string_view path) {
    std::optional<RecordsResult> result;
    importer.records(URL::fileURLWithPath(path), source, [&](RecordsResult outcome) {
        expect(!result);
        result = std::move(outcome);
    });
    expect(result.has_value());
    return *std::move(result);
}

void expectUTF8(std::optional<std::string_view> text) {
    expect(!text || Tests::referenceCodePoints(*text).has_value());
}

void expectUTF8(const Tests::Outcome& outcome) {
    for (const Tests::Password& password : outcome.passwords) {
        expectUTF8(password.username);
        expectUTF8(password.password);
        expectUTF8(password.url);
        expectUTF8(password.service);
        expectUTF8(password.note);
    }
    for (const Tests::Note& note : outcome.notes) {
        expectUTF8(note.title);
        expectUTF8(note.content);
    }
    for (const Tests::Card& card : outcome.cards) {
        expectUTF8(card.cardNumber);
        expectUTF8(card.custName);
        expectUTF8(card.holderName);
        expectUTF8(card.cvv);
        expectUTF8(card.pin);
        expectUTF8(card.note);
    }
}

/// Expects the last record of a list to be readable when the rest of the result is gone.
template <typename Record, typename Copy>
void expectLastToStay(std::vector<std::shared_ptr<const Record>> ImportedRecords::* list,
                      const std::vector<Copy>& copies, RecordsResult result) {
    if (!result || copies.empty()) {
        return;
    }
    const std::shared_ptr<const Record> last = ((*result).*list).back();
    result = ImportedRecords();
    expect(copyOf(*last) == copies.back());
}

} // namespace

Tests::Outcome outcomeOf(ImportSource source, std::string_view path, Contents contents) {
    auto importer = std::make_unique<RecordsImporter>();
    RecordsResult first = resultOf(*importer, source, path);
    const RecordsResult second = resultOf(*importer, source, path);
    importer.reset();

    const Tests::Outcome outcome = copyOf(first);
    expect(copyOf(second) == outcome || contents == Contents::other);
    expectUTF8(outcome);
    if (outcome.cards.empty() && outcome.notes.empty()) {
        expectLastToStay(&ImportedRecords::passwords, outcome.passwords, std::move(first));
    } else if (outcome.cards.empty()) {
        expectLastToStay(&ImportedRecords::notes, outcome.notes, std::move(first));
    } else {
        expectLastToStay(&ImportedRecords::cards, outcome.cards, std::move(first));
    }
    return outcome;
}

void expectAccountedFor(Layout layout, std::string_view text) {
    const ImportedExport read = readExport(ExportFile::inMemory(text, "export"), {.as = layout});
    const Tests::Outcome outcome = copyOf(read.records);
    expectUTF8(outcome);
    std::uint64_t accounted =
        outcome.passwords.size() + outcome.notes.size() + outcome.cards.size();
    for (const LeftOut& left : read.report.leftOut()) {
        accounted += left.places.count;
    }
    expect(read.report.recordCount() == accounted);
    expect(outcome.error.has_value() == (read.report.failure().reason != FailureReason::none));
    for (std::size_t index = 0; index < outcome.passwords.size(); ++index) {
        for (const Extra& extra : read.extras.ofPassword(index)) {
            expectUTF8(extra.label);
            expectUTF8(extra.value);
        }
    }
}

} // namespace Rellinor::Fuzzers
