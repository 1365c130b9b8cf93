// Compiles as it stands. Once one of its functions has another name, as by a slip of the hand, it
// does not compile, and the compiler says which requirement is not met.

#include <vector>

#include "Private/Importers/Importer.hpp"

#ifndef READ
#define READ read
#endif
#ifndef IS_NOTE
#define IS_NOTE isNote
#endif
#ifndef BUILD_NOTE
#define BUILD_NOTE buildNote
#endif

namespace Rellinor::Tests {

namespace {

class MisspeltImporter final {
public:
    using RawRecord = int;

    static constexpr RecordKinds kinds{.notes = true};

    static std::vector<int> READ(const ExportFile& /*file*/, ImportMemory& /*memory*/,
                                 Reporter* /*reporter*/) {
        return {};
    }

    static bool IS_NOTE(int /*record*/) { return true; }

    static Built<ImportedNote> BUILD_NOTE(int /*record*/) { return std::unexpected(Dropped()); }
};

} // namespace

Assembled import() {
    MisspeltImporter importer;
    return readWith(importer, URL::fileURLWithPath("/"), nullptr);
}

} // namespace Rellinor::Tests
