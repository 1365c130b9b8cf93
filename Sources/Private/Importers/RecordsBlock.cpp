#include "Private/Importers/RecordsBlock.hpp"

#include <span>
#include <vector>

#include "Platform/LargeMemory.hpp"

namespace Rellinor {

namespace {

template <typename Interface, typename Record>
std::vector<std::shared_ptr<const Interface>>
asInterfaces(const std::shared_ptr<const RecordsBlock>& block,
             const RecordsBlock::List<Record>& list) {
    std::vector<std::shared_ptr<const Interface>> interfaces;
    interfaces.reserve(list.records.size());
    askForLargePages(std::as_writable_bytes(std::span(interfaces.data(), interfaces.capacity())));
    list.records.forEach([&](const auto& record) { interfaces.emplace_back(block, &record); });
    return interfaces;
}

} // namespace

Assembled RecordsBlock::deliver(const std::shared_ptr<const RecordsBlock>& block, bool hasExtras) {
    return {
        .records =
            ImportedRecords{
                .passwords = asInterfaces<ImportedPasswordInfoProviding>(block, block->passwords),
                .notes = asInterfaces<ImportedNoteInfoProviding>(block, block->notes),
                .cards = asInterfaces<ImportedCardInfoProviding>(block, block->cards)},
        .extras = hasExtras ? Extras(block) : Extras()};
}

} // namespace Rellinor
