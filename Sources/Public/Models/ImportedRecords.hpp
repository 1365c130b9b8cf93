#pragma once

#include <memory>
#include <vector>

#include <Rellinor/Models/ImportedCardInfoProviding.hpp>
#include <Rellinor/Models/ImportedNoteInfoProviding.hpp>
#include <Rellinor/Models/ImportedPasswordInfoProviding.hpp>

namespace Rellinor {

/// What one import found, each list in the order of the file.
///
/// All records of an import share one block of memory that holds their texts. The block lives until
/// the last of them is let go, and its texts are wiped then: a host that keeps a single record
/// keeps the whole block, so copy out what has to live long.
struct ImportedRecords {
    std::vector<std::shared_ptr<const ImportedPasswordInfoProviding>> passwords;
    std::vector<std::shared_ptr<const ImportedNoteInfoProviding>> notes;
    std::vector<std::shared_ptr<const ImportedCardInfoProviding>> cards;
};

} // namespace Rellinor
