#pragma once

#include <memory>
#include <type_traits>

#include <Rellinor/Extras.hpp>
#include <Rellinor/RecordsImporting.hpp>

#include "Private/Importers/ExtrasTable.hpp"
#include "Private/Memory/ChunkedList.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Models/ImportedCard.hpp"
#include "Private/Models/ImportedNote.hpp"
#include "Private/Models/ImportedPassword.hpp"
#include "Private/Models/PasswordList.hpp"

namespace Rellinor {

/// What an import gives: the records or an error, and what the records hold besides their fields.
struct Assembled {
    RecordsResult records;
    Extras extras;
};

/// Everything that one import delivers: the records, and the texts that they point into. Every
/// delivered record shares the ownership of the whole block.
struct RecordsBlock {
    /// The records of one kind; if the source has extras, the extras of each of them.
    template <typename Record>
    struct List {
        std::conditional_t<std::is_same_v<Record, ImportedPassword>, PasswordList,
                           ChunkedList<Record>>
            records;
        ExtrasTable extras;
    };

    ImportMemory memory;
    List<ImportedPassword> passwords;
    List<ImportedNote> notes;
    List<ImportedCard> cards;

    /// The records of `block` as the host sees them, in the order in which they were appended.
    ///
    /// @param hasExtras  whether the source has any
    /// @throws std::bad_alloc
    [[nodiscard]] static Assembled deliver(const std::shared_ptr<const RecordsBlock>& block,
                                           bool hasExtras);
};

} // namespace Rellinor
