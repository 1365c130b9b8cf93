// A Tirel export is decoded as it imports, and what is encoded, what Boost.JSON writes of it or
// what a host in C does is the same again.

#include <memory>
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
#include "Tests/Support/TirelExportInC.hpp"

namespace Rellinor::Fuzzers {

namespace {

Tests::Outcome decoded(std::string_view text) {
    const auto data = TirelExportData::decode(text);
    return data ? Tests::outcomeOf(*data) : Tests::failedWithText();
}

/// What a host in C writes of this export.
std::string writtenInC(std::string_view input) {
    rellinor_read_options options{};
    options.size = sizeof options;
    options.as = RELLINOR_READ_AS_SOURCE;
    options.source = RELLINOR_SOURCE_TIREL;
    const std::unique_ptr<rellinor_result, decltype(&rellinor_result_free)> result(
        rellinor_export_read_memory(input.data(), input.size(), "", &options),
        &rellinor_result_free);
    const auto written = Tests::tirelExportOf(*result);
    const rellinor_text text = rellinor_tirel_export_text(written.get());
    return {text.data, text.length};
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
    expect(writtenInC(input) == text);
    const auto read = boost::json::value_to<TirelExportData>(boost::json::parse(text));
    expect(Tests::outcomeOf(read) == imported);
    expect(read.encode() == text);
    expect(decoded(boost::json::serialize(boost::json::value_from(read))) == imported);
}

} // namespace Rellinor::Fuzzers
