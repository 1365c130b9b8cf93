// What a file is taken for, which a stranger may have made.

#include <span>
#include <string>

#include <Rellinor/Detection.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"

namespace Rellinor::Fuzzers {

namespace {

void expectMeaning(const Detection& found) {
    expect(found.layout || found.obstacle != FailureReason::none);
    expect(!found.layout || found.confidence != Confidence::none);
    expect(!found.source || found.layout);
    expect(!found.layout || !found.product.empty() || *found.layout == Layout::genericCSV);
    if (found.obstacle == FailureReason::none) {
        expect(isRead(*found.layout) || found.confidence == Confidence::possible);
    }
}

} // namespace

void fuzz(std::string_view input) {
    const std::string before(input);
    const ExportFile file = ExportFile::inMemory(input, "export");
    const Detection found = detect(file);
    expectMeaning(found);
    expect(input == before);

    // What is beyond the beginning of a text tells nothing.
    constexpr std::size_t more = 70'000;
    const bool isText = !input.starts_with("PK") && !input.starts_with("SQLite");
    const std::string longer = before + "\n" + std::string(more, 'x');
    const Detection of = detect(ExportFile::inMemory(longer, "export"));
    const Detection other = detect(ExportFile::inMemory(longer + "y", "export"));
    expect(!isText || (of.layout == other.layout && of.obstacle == other.obstacle));
}

} // namespace Rellinor::Fuzzers
