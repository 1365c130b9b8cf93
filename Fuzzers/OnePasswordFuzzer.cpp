// The import of a 1Password export, against the rules as they are told; and its faithful reading.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/JSONReference.hpp"
#include "Tests/Reference/OnePasswordReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputFile file("export.1pif");
    file.write(input);
    const Tests::Outcome outcome = outcomeOf(ImportSource::onePassword, file.path());
    expect(outcome == Tests::referenceOnePasswordImport(input));
    expectAccountedFor(Layout::onePassword1PIF, input);
}
