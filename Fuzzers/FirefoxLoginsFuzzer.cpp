// The import of a Firefox profile that has a "logins.json", against the rules as they are told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/FirefoxReference.hpp"
#include "Tests/Reference/JSONReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputFile file("logins.json");
    file.write(input);
    const Tests::Outcome outcome = outcomeOf(ImportSource::firefox, file.folder());
    expect(outcome == Tests::referenceFirefoxImport(input));
}
