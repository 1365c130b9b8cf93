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

    static std::vector<int> READ(const URL& /*url*/, ImportMemory& /*memory*/) { return {}; }

    static bool IS_NOTE(int /*record*/) { return true; }

    static Built<ImportedNote> BUILD_NOTE(int /*record*/) { return std::unexpected(""); }
};

} // namespace

void import(const RecordsCompletion& onComplete) {
    MisspeltImporter importer;
    importRecords(importer, URL::fileURLWithPath("/"), onComplete);
}

} // namespace Rellinor::Tests
