#include "Private/Importers/RecordsBlock.hpp"

#include <vector>

namespace Rellinor {

namespace {

template <typename Interface, typename Record>
std::vector<std::shared_ptr<const Interface>>
asInterfaces(const std::shared_ptr<const RecordsBlock>& block, const ChunkedList<Record>& records) {
    std::vector<std::shared_ptr<const Interface>> list;
    list.reserve(records.size());
    records.forEach([&](const Record& record) { list.emplace_back(block, &record); });
    return list;
}

} // namespace

ImportedRecords RecordsBlock::deliver(const std::shared_ptr<const RecordsBlock>& block) {
    return {.passwords = asInterfaces<ImportedPasswordInfoProviding>(block, block->passwords),
            .notes = asInterfaces<ImportedNoteInfoProviding>(block, block->notes),
            .cards = asInterfaces<ImportedCardInfoProviding>(block, block->cards)};
}

} // namespace Rellinor
