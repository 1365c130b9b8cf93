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

/// What the tool tells of these contents in a file, which stays as it is. The path of the file, or
/// of the folder around it, is imported.
std::string told(ImportSource source, std::string_view contents, const auto& file,
                 const std::string& path) {
    file.write(contents);
    std::ostringstream out;
    static_cast<void>(Host::runCheck({path}, source, out));
    file.expectUnchanged(contents);
    return out.str();
}

std::string told(ImportSource source, std::string_view contents) {
    static const InputDatabase file("export");
    static const InputFile loginsFile("logins.json");
    static const InputDatabase signons("signons.sqlite");
    if (source != ImportSource::firefox) {
        return told(source, contents, file, file.path());
    }
    if (contents.starts_with("SQLite format 3")) {
        return told(source, contents, signons, signons.folder());
    }
    return told(source, contents, loginsFile, loginsFile.folder());
}

} // namespace

void fuzz(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const auto source = static_cast<ImportSource>(static_cast<unsigned char>(input.front()) % 8);
    expectLinesOfText(told(source, input.substr(1)));
}

} // namespace Rellinor::Fuzzers
