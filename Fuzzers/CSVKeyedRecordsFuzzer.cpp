// The dictionaries that a CSV file gives, against the rules as they are told. The first line of an
// input names the expected headers, by their letters; the rest is the file.

#include <optional>
#include <string>
#include <vector>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Private/Extensions/String.hpp"
#include "Private/Proxies/CSVFileProxy.hpp"
#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/TextReference.hpp"
#include "Tests/Support/CSV.hpp"

namespace Rellinor::Fuzzers {

namespace {

using Tests::Column;
using Dictionaries = std::optional<std::vector<Tests::Dictionary>>;

std::vector<Column> columnsNamedBy(std::string_view line) {
    std::vector<Column> columns;
    for (const char letter : line) {
        for (const Column column : {Column::a, Column::b, Column::c, Column::d}) {
            if (rawValue(column).front() == letter && columns.size() < 6) {
                columns.push_back(column);
            }
        }
    }
    return columns;
}

Dictionaries expected(std::string_view file, const std::vector<Column>& columns) {
    const auto text = Tests::referenceDecodedText(file);
    if (!text) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    for (const Column column : columns) {
        names.emplace_back(rawValue(column));
    }
    return Tests::referenceKeyedRecords(Tests::referenceRows(*text), names);
}

Dictionaries keyedRecords(CSVFileProxy& file, const std::vector<Column>& columns) {
    std::vector<CSVHeader> headers;
    for (const Column column : columns) {
        headers.push_back({.name = rawValue(column), .key = indexOf(column)});
    }
    try {
        return Tests::dictionariesOf(file.keyedRecords(headers));
    } catch (const TextError&) {
        return std::nullopt;
    }
}

} // namespace

void fuzz(std::string_view input) {
    static const InputFile file("export.csv");
    const auto lineEnd = input.find('\n');
    if (lineEnd == std::string_view::npos) {
        return;
    }
    const std::vector<Column> columns = columnsNamedBy(input.substr(0, lineEnd));
    const std::string_view contents = input.substr(lineEnd + 1);
    file.write(contents);

    ImportMemory memory;
    CSVFileProxy proxy(URL::fileURLWithPath(file.path()), memory);
    const Dictionaries dictionaries = expected(contents, columns);
    expect(keyedRecords(proxy, columns) == dictionaries);
    expect(keyedRecords(proxy, columns) == dictionaries); // on what it has kept
}

} // namespace Rellinor::Fuzzers
