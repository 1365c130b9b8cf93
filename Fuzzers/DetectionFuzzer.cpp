// What the tool takes a file for, which a stranger may have made.

#include <sstream>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Fuzzers/Driver/ToolOutput.hpp"
#include "Host/DetectCommand.hpp"
#include "Host/Detection/Detection.hpp"
#include "Host/ExitStatus.hpp"
#include "Tests/Reference/DatabaseReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    static const InputDatabase file("export");
    file.write(input);

    std::ostringstream out;
    const int status = Host::runDetect({file.path()}, out);
    const bool isDatabase = input.starts_with("SQLite format 3");
    if (!isDatabase || Tests::isSoundDatabase(file.path())) {
        const bool isKnown = Host::detect(file.path()).source.has_value();
        expect(status == (isKnown ? Host::ExitStatus::success : Host::ExitStatus::importFailed));
    }
    file.expectUnchanged(input);
    expectLinesOfText(out.str());
}
