// The command-line host: reads the command line and calls the command.

#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include <signal.h> // NOLINT(modernize-deprecated-headers): SIGXFSZ is POSIX
#include <unistd.h>

#include <CLI/CLI.hpp>

#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/ImportCommand.hpp"
#include "Host/OutputFile.hpp"
#include "Host/Source.hpp"

namespace {

using namespace Rellinor::Host; // NOLINT(google-build-using-namespace)

/// Fails unless `parsed` knows the word; the message says where to look.
CLI::Validator knownTo(auto parsed, const std::string& hint) {
    return {[parsed, hint](const std::string& word) {
                return parsed(word) ? std::string() : "\"" + word + "\" is not known; " + hint;
            },
            ""};
}

/// The words of the command line that stand for something else.
struct Words {
    std::string source;
    std::string format = "summary";
};

/// Where the records are to go.
struct Output {
    std::optional<std::string> file; ///< absent for the standard output
    bool force = false;
};

void addImport(CLI::App& app, ImportOptions& options, Words& words, Output& output) {
    CLI::App* command = app.add_subcommand("import", "Import files and show what they hold");
    command->add_option("--source", words.source, "The product that wrote the files")
        ->required()
        ->type_name("SOURCE")
        ->check(knownTo(sourceNamed, "rellinor sources lists the sources"));
    command
        ->add_option("--format", words.format,
                     "summary: counts for each path; table: aligned, for people; "
                     "json: one line for each path; "
                     "tirel: one Tirel export of all paths, never masked")
        ->type_name("FORMAT")
        ->capture_default_str()
        ->check(knownTo(formatNamed, "the formats are summary, table, json and tirel"));
    command->add_flag("--reveal", options.reveal,
                      "Show passwords, card numbers, CVV and PIN instead of masking them, and "
                      "allow a Tirel export on a terminal");
    CLI::Option* const file =
        command
            ->add_option("--output", output.file,
                         "Write to this new file, for its owner alone, instead of standard output")
            ->type_name("FILE");
    command->add_flag("--force", output.force, "Replace the output file if it exists")->needs(file);
    command->add_flag("--keep-importer", options.keepImporter,
                      "Use one importer for all paths instead of a fresh one for each");
    command->add_option("PATH", options.paths, "The files to import")->required()->type_name("");
}

/// Whether an export would show its secrets to whoever looks at the screen.
bool exposesSecrets(const ImportOptions& options) {
    return options.format == Format::tirel && !options.reveal && ::isatty(STDOUT_FILENO) == 1;
}

int runImport(const ImportOptions& options, const Output& output) {
    if (output.file) {
        OutputFile file(*output.file, output.force ? Existing::replaced : Existing::kept);
        const int status = import(options, file.stream(), std::cerr);
        file.commit();
        return status;
    }
    if (exposesSecrets(options)) {
        std::cerr << "rellinor: a Tirel export holds unmasked secrets: write it with --output "
                     "FILE, or show it with --reveal\n";
        return ExitStatus::wrongUsage;
    }
    return import(options, std::cout, std::cerr);
}

int run(int argc, char* argv[]) {
    CLI::App app("Imports what other password managers and browsers hold", "rellinor");
    app.set_version_flag("--version", "rellinor " RELLINOR_VERSION);
    app.require_subcommand(1);
    ImportOptions options;
    Words words;
    Output output;
    addImport(app, options, words, output);
    app.add_subcommand("sources", "List the sources");
    app.failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
        return "rellinor: " + displayText(error.what()) + " (rellinor --help tells more)\n";
    });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitStatus::success : ExitStatus::wrongUsage;
    }

    if (app.got_subcommand("sources")) {
        listSources(std::cout);
    }
    int status = ExitStatus::success;
    if (app.got_subcommand("import")) {
        options.source = *sourceNamed(words.source);
        options.format = *formatNamed(words.format);
        status = runImport(options, output);
    }
    if (!std::cout.flush()) {
        std::cerr << "rellinor: the output could not be written\n";
        return ExitStatus::unwritableOutput;
    }
    return status;
}

} // namespace

int main(int argc, char* argv[]) {
    // A file that would grow beyond its limit is output that cannot be written, not an end.
    ::signal(SIGXFSZ, SIG_IGN);
    try {
        return run(argc, argv);
    } catch (const OutputError& error) {
        std::cerr << "rellinor: " << displayText(error.what()) << '\n';
        return ExitStatus::unwritableOutput;
    } catch (const std::exception& exception) {
        std::cerr << "rellinor: " << displayText(exception.what()) << '\n';
        return ExitStatus::wrongUsage;
    }
}
