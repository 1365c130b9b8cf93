// The rows of a CSV text, against the dialect as it is told.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/TextReference.hpp"
#include "Tests/Support/CSV.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    if (Tests::referenceCodePoints(input)) { // the reader is given nothing else
        expect(Tests::rows(input) == Tests::referenceRows(input));
    }
}
