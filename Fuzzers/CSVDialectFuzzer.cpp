// The rows of a CSV text, against each dialect as it is told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/CSVTableReference.hpp"
#include "Tests/Reference/TextReference.hpp"
#include "Tests/Support/CSV.hpp"
#include "Tests/Support/CSVTables.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    if (Tests::referenceCodePoints(input)) { // the readers are given nothing else
        expect(Tests::rows(input) == Tests::referenceRows(input));
        for (const CSVQuotes quotes : {CSVQuotes::doubled, CSVQuotes::backslashed}) {
            const CSVDialect dialect{.separator = ',', .quotes = quotes};
            expect(Tests::tableOf(input, dialect) == Tests::referenceTable(input, dialect));
        }
    }
}
