// What is kept of a JSON text, against a reader that keeps all.

#include <array>
#include <string_view>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/JSONComparison.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static constexpr std::array<std::string_view, 4> keys = {"a", "logins", "color", "fields"};

    ImportMemory memory;
    const auto document = JSONDocument::parsed(input, keys, memory);
    const auto reference = Tests::referenceJSON(input);
    expect(document.has_value() == reference.has_value());
    if (document) {
        expectEqual(document->root(), *reference, keys);
        const auto all = JSONDocument::parsed(input, keys, memory, JSONExtent::everything);
        expectAllEqual(all->root(), *reference, keys);
    }
}
