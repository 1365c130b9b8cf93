// What is told of bytes that may be UTF-8, against Unicode's tables and rules.

#include <cstddef>
#include <string>
#include <vector>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Text/UTF8.hpp"
#include "Tests/Reference/TextReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    const auto codePoints = Tests::referenceCodePoints(input);
    expect(isUTF8(input) == codePoints.has_value());

    std::vector<char> bytes(input.begin(), input.end());
    const auto decoded = decodedText(bytes);
    const auto decodedReference = Tests::referenceDecodedText(input);
    expect(decoded.has_value() == decodedReference.has_value());
    expect(!decoded || std::string(decoded->begin(), decoded->end()) == *decodedReference);

    std::vector<char> repaired(sizeOfRepairedText(input));
    writeRepairedText(input, repaired);
    expect(std::string(repaired.begin(), repaired.end()) == Tests::referenceRepairedText(input));

    if (codePoints) {
        expect(numberOfCharacters(input) == Tests::referenceNumberOfCharacters(*codePoints));
        expect(numberOfUTF16Units(input) == Tests::referenceUTF16(*codePoints).size());
        expect(isBlank(input) == Tests::referenceIsBlank(*codePoints));
    } else {
        expect(numberOfCharacters(input) <= input.size());
    }
}
