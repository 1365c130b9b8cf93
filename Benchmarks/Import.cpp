#include "Benchmarks/Import.hpp"

#include <stdexcept>
#include <utility>

namespace Rellinor::Benchmarks {

namespace {

RecordsResult resultOf(const Store& store) {
    RecordsResult outcome;
    RecordsImporter().records(URL::fileURLWithPath(store.path.native()), store.source,
                              [&](RecordsResult result) { outcome = std::move(result); });
    return outcome;
}

} // namespace

Delivered deliveredBy(const Import& import) {
    const ImportedRecords& records = import.records;
    Delivered delivered{.logins = records.passwords.size(),
                        .notes = records.notes.size(),
                        .cards = records.cards.size()};
    for (const auto& password : records.passwords) {
        delivered.bytes += password->username().size() + password->password().size() +
                           password->url().size() + password->service().value_or("").size() +
                           password->note().value_or("").size();
    }
    for (const auto& note : records.notes) {
        delivered.bytes += note->title().size() + note->content().size();
    }
    for (const auto& card : records.cards) {
        delivered.bytes += card->cardNumber().size() + card->custName().size() +
                           card->holderName().size() + card->cvv().size() + card->pin().size() +
                           card->note().size();
    }
    return delivered;
}

Import imported(const Store& store) {
    RecordsResult result = resultOf(store);
    if (!result) {
        throw std::runtime_error("the import failed");
    }
    return {std::move(*result)};
}

Import importedIfPossible(const Store& store) {
    return {resultOf(store).value_or(ImportedRecords())};
}

Import readFaithfully(const Store& store) {
    ImportedExport read = readExport(ExportFile::atPath(store.path.native()),
                                     {.as = store.layout.value(), .onProgress = {}, .limits = {}});
    return {std::move(read.records).value_or(ImportedRecords()), std::move(read.extras),
            std::move(read.report)};
}

} // namespace Rellinor::Benchmarks
