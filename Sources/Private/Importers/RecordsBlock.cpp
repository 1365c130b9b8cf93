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
    list.records.forEach([&](const auto& record) { interfaces.emplace_back(block, &record); });
    return interfaces;
}

std::vector<std::span<const Extra>> asVector(const ChunkedList<std::span<const Extra>>& list) {
    std::vector<std::span<const Extra>> vector;
    vector.reserve(list.size());
    list.forEach([&](const std::span<const Extra>& extras) { vector.push_back(extras); });
    return vector;
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
        assembled.extras._passwords = asVector(block->passwords.extras);
        assembled.extras._notes = asVector(block->notes.extras);
        assembled.extras._cards = asVector(block->cards.extras);
    }
    return assembled;
}

} // namespace Rellinor
