// The integer that a number of JSON is, against one whose point is moved digit by digit.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Platform/JSONNumber.hpp"
#include "Tests/Reference/JSONReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    if (Tests::isReferenceNumber(input)) { // nothing else gets there
        expect(integralValue(input) == Tests::referenceInteger(input));
    }
}
