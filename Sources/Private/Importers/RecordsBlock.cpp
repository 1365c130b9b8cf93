#include "Private/Importers/RecordsBlock.hpp"

#include <vector>

namespace Rellinor {

namespace {

template <typename Interface, typename Record>
std::vector<std::shared_ptr<const Interface>>
asInterfaces(const std::shared_ptr<const RecordsBlock>& block,
             const RecordsBlock::List<Record>& list) {
    std::vector<std::shared_ptr<const Interface>> interfaces;
    interfaces.reserve(list.records.size());
    list.records.forEach([&](const Record& record) { interfaces.emplace_back(block, &record); });
    return interfaces;
}

} // namespace

Assembled RecordsBlock::deliver(const std::shared_ptr<const RecordsBlock>& block, bool hasExtras) {
    Assembled assembled{
        .records =
            ImportedRecords{
                .passwords = asInterfaces<ImportedPasswordInfoProviding>(block, block->passwords),
                .notes = asInterfaces<ImportedNoteInfoProviding>(block, block->notes),
                .cards = asInterfaces<ImportedCardInfoProviding>(block, block->cards)},
        .extras = {}};
    if (hasExtras) {
        assembled.extras._block = block;
    }
    return assembled;
}

} // namespace Rellinor
