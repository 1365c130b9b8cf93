// What the tool tells of a file before its import. The first byte of an input chooses the source;
// the rest is the file.

#include <sstream>
#include <string>

#include <Rellinor/Rellinor.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Fuzzers/Driver/ToolOutput.hpp"
#include "Host/CheckCommand.hpp"

namespace Rellinor::Fuzzers {

namespace {

std::string written(ImportSource source, std::string_view contents) {
    static const InputDatabase file("export");
    static const InputFile loginsFile("logins.json");
    static const InputDatabase signons("signons.sqlite");
    if (source != ImportSource::firefox) {
        file.write(contents);
        return file.path();
    }
    if (contents.starts_with("SQLite format 3")) {
        signons.write(contents);
        return signons.folder();
    }
    loginsFile.write(contents);
    return loginsFile.folder();
}

} // namespace

void fuzz(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const auto source = static_cast<ImportSource>(static_cast<unsigned char>(input.front()) % 8);
    const std::string path = written(source, input.substr(1));

    std::ostringstream out;
    static_cast<void>(Host::runCheck({path}, source, out));
    expectLinesOfText(out.str());
}

} // namespace Rellinor::Fuzzers
