// A file in the 1Password Interchange Format as one JSON value, against the rules as they are told.

#include <array>
#include <optional>
#include <string_view>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Fuzzers/Driver/JSONComparison.hpp"
#include "Private/Proxies/PIFFileProxy.hpp"
#include "Private/Proxies/PIFParsingError.hpp"
#include "Tests/Reference/OnePasswordReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

constexpr std::array<std::string_view, 4> keys = {"a", "records", "fields", "url"};

std::optional<JSON> toJSON(const URL& file, ImportMemory& memory) {
    try {
        return PIFFileProxy::toJSON(file, "records", keys, memory);
    } catch (const PIFParsingError&) {
        return std::nullopt;
    }
}

} // namespace

void fuzz(std::string_view input) {
    static const InputFile file("export.1pif");
    file.write(input);

    ImportMemory memory;
    auto json = toJSON(URL::fileURLWithPath(file.path()), memory);
    const auto reference = Tests::referencePIF(input, "records");
    expect(json.has_value() == reference.has_value());
    if (json) {
        const JSONDocument document = (*std::move(json)).takeDocument();
        expectEqual(document.root(), *reference, keys);
    }
}

} // namespace Rellinor::Fuzzers
