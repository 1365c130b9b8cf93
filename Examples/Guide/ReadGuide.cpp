// What the guide for hosts shows of reading faithfully, put to use: reads a LastPass export as the
// importer does, and tells what became of it.

#include <iostream>
#include <span>

#include "Examples/Guide/ReadExport.hpp"

int main(int argc, char* argv[]) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 2) {
        std::cerr << "usage: rellinor-read-guide LASTPASS-EXPORT\n";
        return 2;
    }
    const auto imported =
        readAndTell(arguments[1], Rellinor::ImportSource::lastPass, [] { return true; }, std::cout);
    return imported.records ? 0 : 1;
}
