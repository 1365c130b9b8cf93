#pragma once

#include <memory>

#include <Rellinor/Models/ImportedRecords.hpp>

#include "Private/Memory/ChunkedList.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Models/ImportedCard.hpp"
#include "Private/Models/ImportedNote.hpp"
#include "Private/Models/ImportedPassword.hpp"

namespace Rellinor {

/// Everything that one import delivers: the records, and the texts that they point into. Every
/// delivered record shares the ownership of the whole block.
struct RecordsBlock {
    ImportMemory memory;
    ChunkedList<ImportedPassword> passwords;
    ChunkedList<ImportedNote> notes;
    ChunkedList<ImportedCard> cards;

    /// The records of `block` as the host sees them, in the order in which they were appended.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static ImportedRecords deliver(const std::shared_ptr<const RecordsBlock>& block);
};

} // namespace Rellinor
