#pragma once

#include <cstddef>
#include <string_view>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Importer.hpp"
#include "Private/Proxies/ExportMembers.hpp"

namespace Rellinor {

/// What of an archive or folder never arrives, where nobody knows more of it.
inline constexpr std::string_view otherFilesPart = "other files";

/// An archive or folder, of which several files are read into one import, one after the other.
class MembersImport {
public:
    /// @param block, reporter  outlive this
    /// @throws ReadError  there is no such archive or folder
    MembersImport(const ExportFile& file, RecordsBlock& block, Reporter& reporter);

    [[nodiscard]] const ExportMembers& members() const noexcept { return _members; }

    [[nodiscard]] Reporter& reporter() noexcept { return _reporter; }

    /// Reads one file; one without a byte holds nothing.
    ///
    /// @param name  of the file in the report, a literal
    /// @throws ReadError
    template <Importer Source>
    void read(const ZipMember& member, std::string_view name, Source importer) {
        ImportMemory memory; // until the importer has copied the bytes
        _reporter.enterMember(name);
        if (const std::string_view text = textOf(member, memory); !text.empty()) {
            Assembly<Source>(importer, _block, &_reporter)
                .read(ExportFile::inMemory(text, member.name));
        }
        _reporter.enterMember({});
    }

private:
    [[nodiscard]] std::string_view textOf(const ZipMember& member, ImportMemory& memory);

    ExportMembers _members;
    RecordsBlock& _block;
    Reporter& _reporter;
};

} // namespace Rellinor
