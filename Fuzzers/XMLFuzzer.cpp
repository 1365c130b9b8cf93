// An XML text, and the same as an export of KeePass.

#include <cstddef>

#include <Rellinor/ExportReader.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Proxies/XMLDocument.hpp"
#include "Tests/Support/Reports.hpp"

namespace Rellinor::Fuzzers {

namespace {

/// How many bytes the names and texts of an element and of those in it have.
std::size_t sizeOf(const XMLElement& element, std::size_t depth) {
    constexpr std::size_t deepest = 256;

    expect(depth < deepest);
    expect(element.text().empty() || element.begin() == XMLElement::end());
    std::size_t size = element.name().size() + element.text().size();
    for (const XMLElement& inner : element) {
        size += sizeOf(inner, depth + 1);
    }
    return size;
}

} // namespace

void fuzz(std::string_view input) {
    ImportMemory memory;
    if (const auto document = XMLDocument::parsed(input, memory)) {
        expect(sizeOf(document->root(), 0) <= input.size() + input.size() / 2);
    }
    expect(Tests::isConsistent(
        readExport(ExportFile::inMemory(input, "export.xml"), {.as = Layout::keePassXML})));
}

} // namespace Rellinor::Fuzzers
