#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// A secure note, read only.
///
/// Every text is UTF-8, untrimmed, and stays valid as long as a shared pointer to the record
/// exists. It may contain NUL, so it is not a C string.
class RELLINOR_PUBLIC ImportedNoteInfoProviding {
public:
    /// For implementations alone: a host keeps a record by its shared pointer.
    ImportedNoteInfoProviding(const ImportedNoteInfoProviding&) = default;
    /// For implementations alone.
    ImportedNoteInfoProviding& operator=(const ImportedNoteInfoProviding&) = default;
    virtual ~ImportedNoteInfoProviding() = default;

    /// Colour code of the entry, in the source's own palette; absent where the source has none.
    [[nodiscard]] virtual std::optional<std::int64_t> color() const noexcept = 0;
    /// Title of the note; empty where the source has none.
    [[nodiscard]] virtual std::string_view title() const noexcept = 0;
    /// Body of the note; empty where the source has none.
    [[nodiscard]] virtual std::string_view content() const noexcept = 0;

protected:
    ImportedNoteInfoProviding() = default;
};

} // namespace Rellinor
