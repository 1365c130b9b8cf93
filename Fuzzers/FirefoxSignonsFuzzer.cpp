// The import of a Firefox profile that has a database, against the rules as they are told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/DatabaseReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputDatabase database("signons.sqlite");
    database.write(input);
    if (!Tests::isSoundDatabase(database.path())) {
        static_cast<void>(outcomeOf(ImportSource::firefox, database.folder(), Contents::other));
        database.expectUnchanged(input);
        return;
    }
    expect(outcomeOf(ImportSource::firefox, database.folder()) ==
           Tests::referenceSignonsImport(database.path()));
    database.expectUnchanged(input);
}
