// The import of a Tirel export, against the rules as they are told; and its faithful reading.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/JSONReference.hpp"
#include "Tests/Reference/TirelReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputFile file("export.json");
    file.write(input);
    const Tests::Outcome outcome = outcomeOf(ImportSource::tirel, file.path());
    expect(outcome == Tests::referenceTirelImport(input));
    expectAccountedFor(Layout::tirelJSON, input);
}
