// The import of a LastPass export, against the rules as they are told.

#include <set>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/LastPassReference.hpp"
#include "Tests/Reference/TextReference.hpp"
#include "Tests/Reference/URLReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

/// The cells whose host is that of a secure note.
std::set<std::string> urlsOfNotesIn(const std::string& text) {
    std::set<std::string> urls;
    for (const Tests::Row& row : Tests::referenceRows(text)) {
        for (const std::string& cell : row) {
            if (Tests::referenceHost(cell) == "sn") {
                urls.insert(cell);
            }
        }
    }
    return urls;
}

Tests::Outcome expected(std::string_view input) {
    const auto text = Tests::referenceDecodedText(input);
    return text ? Tests::referenceLastPassImport(*text, urlsOfNotesIn(*text))
                : Tests::failedWithText();
}

} // namespace

void fuzz(std::string_view input) {
    static const InputFile file("export.csv");
    file.write(input);
    expect(outcomeOf(ImportSource::lastPass, file.path()) == expected(input));
}

} // namespace Rellinor::Fuzzers
