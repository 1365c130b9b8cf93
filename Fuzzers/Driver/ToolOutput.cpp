#include "Fuzzers/Driver/ToolOutput.hpp"

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Fuzzers {

void expectLinesOfText(std::string_view output) {
    expect(output.ends_with('\n'));
    const auto codePoints = Tests::referenceCodePoints(output);
    expect(codePoints.has_value());
    for (const char32_t codePoint : *codePoints) {
        const bool isControl = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
        expect(codePoint == U'\n' || !isControl);
    }
}

} // namespace Rellinor::Fuzzers
