// A Tirel export is decoded as it imports, and what is encoded or what Boost.JSON writes of it is
// the same again.

#include <optional>
#include <string>
#include <string_view>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value_from.hpp>

#include <Rellinor/Models/TirelExportDataJSON.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Fuzzers {

namespace {

Tests::Outcome decoded(std::string_view text) {
    const auto data = TirelExportData::decode(text);
    return data ? Tests::outcomeOf(*data) : Tests::failedWithText();
}

} // namespace

void fuzz(std::string_view input) {
    static const InputFile file("export.json");
    file.write(input);
    const Tests::Outcome imported = outcomeOf(ImportSource::tirel, file.path());
    const auto data = TirelExportData::decode(input);
    if (!data) {
        expect(imported == Tests::failedWithText());
        return;
    }
    expect(Tests::outcomeOf(*data) == imported);

    const std::string text = data->encode();
    expect(decoded(text) == imported);
    const auto read = boost::json::value_to<TirelExportData>(boost::json::parse(text));
    expect(Tests::outcomeOf(read) == imported);
    expect(read.encode() == text);
    expect(decoded(boost::json::serialize(boost::json::value_from(read))) == imported);
}

} // namespace Rellinor::Fuzzers
