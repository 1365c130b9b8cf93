// Base64, against a writer that goes bit by bit.

#include <string>
#include <vector>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Text/Base64.hpp"
#include "Tests/Reference/DatabaseReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    std::vector<char> text(sizeOfBase64(input.size()));
    writeBase64(input, text);
    expect(std::string(text.begin(), text.end()) == Tests::referenceBase64(std::string(input)));
}
