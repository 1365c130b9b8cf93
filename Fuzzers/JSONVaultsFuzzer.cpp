// A JSON text as each of the vaults that are JSON, alone or in an archive.

#include <string>

#include <Rellinor/ExportReader.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Fuzzers {

namespace {

void expectConsistent(std::string_view file, Layout layout) {
    const ImportedExport imported =
        readExport(ExportFile::inMemory(file, "export"), {.as = layout});
    expect(Tests::isConsistent(imported));
}

} // namespace

void fuzz(std::string_view input) {
    for (const Layout layout :
         {Layout::bitwardenJSON, Layout::protonPassJSON, Layout::enpassJSON, Layout::keeperJSON,
          Layout::safariZip, Layout::credentialExchangeJSON}) {
        expectConsistent(input, layout);
    }
    const std::string archive = Tests::zipOf({{.name = "export.data", .contents = input}});
    expectConsistent(archive, Layout::onePassword1PUX);
}

} // namespace Rellinor::Fuzzers
