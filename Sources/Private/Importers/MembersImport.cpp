#include "Private/Importers/MembersImport.hpp"

#include <span>
#include <utility>

#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/JSONExport.hpp"
#include "Private/Text/UTF16.hpp"

namespace Rellinor {

MembersImport::MembersImport(const ExportFile& file, RecordsBlock& block, Reporter& reporter)
    : _members(membersOf(file, reporter)), _block(block), _reporter(reporter) {}

/// A text that was UTF-16 is UTF-8 then.
std::string_view MembersImport::textOf(const ZipMember& member, ImportMemory& memory) {
    const auto bytes = _members.read(member, memory);
    if (!bytes) {
        throw ReadError(bytes.error());
    }
    const std::string_view text(bytes->data(), bytes->size());
    if (!hasUTF16Mark(text)) {
        return text;
    }
    DecodedUTF16 decoded = decodedUTF16(text, _reporter);
    const std::span<const char> utf8 =
        memory.adopt({.buffer = std::move(decoded.buffer), .begin = 0, .size = decoded.size});
    return {utf8.data(), utf8.size()};
}

} // namespace Rellinor
