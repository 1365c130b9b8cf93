#include <iostream>

#include <Rellinor/Rellinor.hpp>

int main(int argc, char* argv[]) {
    const char* const path = argc > 1 ? argv[1] : "export.csv";

    Rellinor::RecordsImporter importer;
    importer.records(Rellinor::URL::fileURLWithPath(path), Rellinor::ImportSource::lastPass,
                     [](const Rellinor::RecordsResult& result) {
                         if (!result) {
                             std::cerr << result.error().localizedDescription() << '\n';
                             return;
                         }
                         for (const auto& password : result->passwords) {
                             std::cout << password->username() << " ("
                                       << password->service().value_or("") << ")\n";
                         }
                     });
}
