// Whether a row holds an identifier in braces within reach, against a search unit by unit.

#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"
#include "Private/Proxies/CSVCursor.hpp"
#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/DashlaneReference.hpp"
#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

bool holdsIdentifier(const Tests::Row& row) {
    std::string joined;
    for (const std::string& cell : row) {
        joined += cell;
    }
    const auto codePoints = Tests::referenceCodePoints(joined);
    return Tests::identifiersIn(Tests::referenceUTF16(*codePoints),
                                Tests::referenceNumberOfCharacters(*codePoints)) > 0;
}

} // namespace

void fuzz(std::string_view input) {
    // What the cursor is never given, and the reference would rewrite.
    if (!Tests::referenceCodePoints(input) || input.contains("\\\"") || input.contains("\r\n")) {
        return;
    }
    DashlaneIdentifierSearch search;
    CSVCursor rows(input);
    for (const Tests::Row& row : Tests::referenceRows(input)) {
        expect(rows.nextRow());
        expect(search.finds(rows, input) == holdsIdentifier(row));
    }
    expect(!rows.nextRow());
}

} // namespace Rellinor::Fuzzers
