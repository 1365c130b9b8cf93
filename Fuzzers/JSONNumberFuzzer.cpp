// The integer that a number of JSON is, against one whose point is moved digit by digit.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Text/JSONNumber.hpp"
#include "Tests/Reference/JSONReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    // Nothing else gets there.
    if (Tests::isReferenceNumber(input)) {
        expect(integralValue(input) == Tests::referenceInteger(input));
    }
}
