// A CSV text as each of the layouts that are CSV files.

#include <Rellinor/ExportReader.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Tests/Support/Reports.hpp"

namespace Rellinor::Fuzzers {

void fuzz(std::string_view input) {
    for (const Layout layout : allLayouts()) {
        if (!csvTablesOf(layout).empty()) {
            const ImportedExport imported =
                readExport(ExportFile::inMemory(input, "export.csv"), {.as = layout});
            expect(Tests::isConsistent(imported));
        }
    }
}

} // namespace Rellinor::Fuzzers
