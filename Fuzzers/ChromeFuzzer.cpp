// The import of Chrome's login database, against the rules as they are told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/DatabaseReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputDatabase database("Login Data");
    database.write(input);
    if (!Tests::isSoundDatabase(database.path())) {
        static_cast<void>(outcomeOf(ImportSource::chrome, database.path(), Contents::other));
        database.expectUnchanged(input);
        return;
    }
    expect(outcomeOf(ImportSource::chrome, database.path()) ==
           Tests::referenceChromeImport(database.path()));
    database.expectUnchanged(input);
}
