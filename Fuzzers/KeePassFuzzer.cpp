// The import of a KeePass or KeePassXC export, against the rules as they are told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/KeePassReference.hpp"
#include "Tests/Reference/TextReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputFile file("export.csv");
    file.write(input);
    const auto text = Tests::referenceDecodedText(input);
    const Tests::Outcome expected =
        text ? Tests::referenceKeePassImport(*text) : Tests::failedWithText();
    expect(outcomeOf(ImportSource::keePass, file.path()) == expected);
    expect(outcomeOf(ImportSource::keePassXC, file.path()) == expected);
}
