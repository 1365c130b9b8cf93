// Brings the notes of a LastPass export into a Tirel export file, and reads that back: through the
// library, and through Boost.JSON.

#include <cstdint>
#include <iostream>
#include <string>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

#include <Rellinor/Models/TirelExportDataJSON.hpp>
#include <Rellinor/Rellinor.hpp>

int main(int argc, char* argv[]) {
    Rellinor::TirelExportData data;
    Rellinor::RecordsImporter importer;
    importer.records(Rellinor::URL::fileURLWithPath(argc > 1 ? argv[1] : ""),
                     Rellinor::ImportSource::lastPass, [&](const Rellinor::RecordsResult& result) {
                         if (!result) {
                             return;
                         }
                         for (const auto& note : result->notes) {
                             data.notes.emplace_back(std::int64_t{0}, std::string(note->title()),
                                                     std::string(note->content()));
                         }
                     });

    const std::string text = data.encode();
    const auto read = boost::json::value_to<Rellinor::TirelExportData>(boost::json::parse(text));
    const auto decoded =
        Rellinor::TirelExportData::decode(boost::json::serialize(boost::json::value_from(read)));
    std::cout << (decoded ? decoded->notes.size() : 0) << " notes in " << text << '\n';
}
