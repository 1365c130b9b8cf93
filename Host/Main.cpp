// The command-line host: does what the command line asks for.

#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <variant>

#include <signal.h> // NOLINT(modernize-deprecated-headers): SIGXFSZ is POSIX
#include <unistd.h>

#include "Host/CheckCommand.hpp"
#include "Host/CommandLine.hpp"
#include "Host/DetectCommand.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/ImportCommand.hpp"
#include "Host/Input.hpp"
#include "Host/Layouts.hpp"
#include "Host/OutputFile.hpp"
#include "Host/ProcessState.hpp"
#include "Host/Source.hpp"
#include "Host/Terminal.hpp"
#include "Host/Wall.hpp"

namespace {

using namespace Rellinor::Host; // NOLINT(google-build-using-namespace)

/// Whether an export would show its secrets to whoever looks at the screen.
bool exposesSecrets(const ImportOptions& options, const Terminal& terminal) {
    return !exportName(options.format).empty() && !options.reveal && terminal.width;
}

int answer(const ImportRequest& request) {
    ImportOptions options = request.options;
    if (terminalAt(STDERR_FILENO).width) {
        options.progress = &std::cerr;
    }
    if (request.output) {
        // Not on the stack, which may be small.
        const auto file = std::make_unique<OutputFile>(
            *request.output, request.force ? Existing::replaced : Existing::kept);
        wallIn({.output = file->folder(), .isOpenToFiles = options.keepImporter});
        const int status = import(options, Terminal(), file->stream(), std::cerr);
        file->commit();
        return status;
    }
    const Terminal terminal = terminalAt(STDOUT_FILENO);
    if (exposesSecrets(options, terminal)) {
        std::cerr << "rellinor: " << exportName(options.format)
                  << " holds unmasked secrets: write it with --output FILE, or show it with "
                     "--reveal\n";
        return ExitStatus::wrongUsage;
    }
    wallIn({.output = {}, .isOpenToFiles = options.keepImporter});
    return import(options, terminal, std::cout, std::cerr);
}

int answer(const DetectRequest& request) {
    wallIn({});
    return runDetect(request.paths, request.wording, std::cout);
}

int answer(const CheckRequest& request) {
    wallIn({});
    return runCheck(request.paths, request.as, request.wording, std::cout);
}

int answer(const SourcesRequest& /*request*/) {
    listSources(std::cout);
    return ExitStatus::success;
}

int answer(const LayoutsRequest& /*request*/) {
    listLayouts(std::cout);
    return ExitStatus::success;
}

int run(int argc, char* argv[]) {
    const auto request = readCommandLine(argc, argv);
    int status = request ? std::visit([](const auto& asked) { return answer(asked); }, *request)
                         : request.error();
    if (!std::cout.flush()) {
        std::cerr << "rellinor: the output could not be written\n";
        status = ExitStatus::unwritableOutput;
    }
    return status;
}

} // namespace

int main(int argc, char* argv[]) {
    if (!openMissingStreams()) {
        return ExitStatus::unwritableOutput;
    }
    protectSecrets();
    // A file that would grow beyond its limit is output that cannot be written, not an end.
    ::signal(SIGXFSZ, SIG_IGN);
    try {
        return run(argc, argv);
    } catch (const OutputError& error) {
        std::cerr << "rellinor: " << displayText(error.what()) << '\n';
        return ExitStatus::unwritableOutput;
    } catch (const InputError& error) {
        std::cerr << "rellinor: " << displayText(error.what()) << '\n';
        return ExitStatus::importFailed;
    } catch (const std::bad_alloc&) {
        std::cerr << "rellinor: there is not enough memory\n";
        return ExitStatus::unwritableOutput;
    } catch (const std::exception& exception) {
        std::cerr << "rellinor: " << displayText(exception.what()) << '\n';
        return ExitStatus::wrongUsage;
    }
}
