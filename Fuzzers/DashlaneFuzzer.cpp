// The import of a Dashlane export, against the rules as they are told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/DashlaneReference.hpp"
#include "Tests/Reference/TextReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputFile file("export.csv");
    file.write(input);
    const auto text = Tests::referenceDecodedText(input);
    expect(outcomeOf(ImportSource::dashlane, file.path()) ==
           (text ? Tests::referenceDashlaneImport(*text) : Tests::failedWithText()));
}
