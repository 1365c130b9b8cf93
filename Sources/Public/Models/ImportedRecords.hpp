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
/// keeps the whole block, so copy out what has to live long. Nothing in the block changes any more:
/// records may be read, and let go, on any thread.
struct ImportedRecords {
    /// Logins; none is null.
    std::vector<std::shared_ptr<const ImportedPasswordInfoProviding>> passwords;
    /// Secure notes; none is null.
    std::vector<std::shared_ptr<const ImportedNoteInfoProviding>> notes;
    /// Payment cards; none is null.
    std::vector<std::shared_ptr<const ImportedCardInfoProviding>> cards;
};

} // namespace Rellinor
