#include "Host/CommandLine.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include <CLI/CLI.hpp>
#include <Rellinor/rellinor.h>

#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/Layouts.hpp"
#include "Host/Listed.hpp"
#include "Host/NearestName.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

using Names = std::span<const std::string_view>;

constexpr std::string_view automatic = "auto";

constexpr std::string_view commandNames[] = {"import", "check", "detect", "sources", "layouts"};

std::string theCommands() {
    return "the commands are " + listed(commandNames);
}

std::string quoted(std::string_view word) {
    return '"' + displayText(word) + '"';
}

/// A sentence that proposes the nearest name, or else says where to look.
std::string unknown(std::string_view word, Names names, std::string_view hint) {
    const std::string_view nearest = nearestName(word, names);
    return quoted(word) + " is not known; " +
           (nearest.empty() ? std::string(hint) : "did you mean " + std::string(nearest) + "?");
}

/// Fails unless `parsed` knows the word.
CLI::Validator knownTo(bool (*parsed)(std::string_view), Names (*names)(), std::string_view hint) {
    return {[=](const std::string& word) {
                return parsed(word) ? std::string() : unknown(word, names(), hint);
            },
            ""};
}

bool isSourceOrAutomatic(std::string_view word) {
    return word == automatic || sourceNamed(word);
}

Names wordings() {
    static constexpr std::string_view names[] = {"text", "json"};
    return names;
}

Wording wordingNamed(std::string_view name) {
    return name == "json" ? Wording::programs : Wording::people;
}

/// The words of the command line that stand for something else.
struct Words {
    std::string source;
    std::string layout;
    std::string format;
};

bool isLayout(std::string_view word) {
    return layoutWithIdentifier(word).has_value();
}

/// Adds the options that say what the files are.
void addKind(CLI::App& command, Words& words) {
    CLI::Option* const source = command
                                    .add_option("-s,--source", words.source,
                                                "Import as this source does, quirks and all;\n"
                                                "auto is the same as no source")
                                    ->type_name("SOURCE")
                                    ->check(knownTo(isSourceOrAutomatic, sourceNames,
                                                    "rellinor sources lists the sources"));
    command.add_option("-l,--layout", words.layout, "Read as this layout instead of finding out")
        ->type_name("LAYOUT")
        ->excludes(source)
        ->check(knownTo(isLayout, layoutNames, "rellinor layouts lists the layouts"));
}

void addPaths(CLI::App& command, std::vector<std::string>& paths) {
    command.add_option("PATH", paths, "The files or profile folders; - is standard input")
        ->required()
        ->type_name("");
}

void addImport(CLI::App& app, ImportRequest& request, Words& words) {
    ImportOptions& options = request.options;
    words.format = "summary";
    CLI::App& command = *app.add_subcommand("import", "Import files and show what they hold");
    addKind(command, words);
    command
        .add_option("-f,--format", words.format,
                    "summary: counts for each path;\n"
                    "table: aligned, for people;\n"
                    "json: one line for each path;\n"
                    "tirel: one Tirel export of all paths, never masked;\n"
                    "credential-exchange: one file for other products of\n"
                    "all paths, never masked")
        ->type_name("FORMAT")
        ->capture_default_str()
        ->check(knownTo([](std::string_view word) { return formatNamed(word).has_value(); },
                        formatNames,
                        "the formats are summary, table, json, tirel and "
                        "credential-exchange"));
    command.add_flag("-r,--reveal", options.reveal,
                     "Show passwords and all other secrets instead of\n"
                     "masking them, and allow an export on a terminal");
    CLI::Option* const file =
        command
            .add_option("-o,--output", request.output,
                        "Write to this new file, for its owner alone, instead\n"
                        "of standard output")
            ->type_name("FILE");
    command.add_flag("--force", request.force, "Replace the output file if it exists")->needs(file);
    command.add_flag("--encrypted", options.takesEncrypted,
                     "Take passwords that a browser keeps encrypted into\n"
                     "a Tirel export, as they are");
    command.add_flag("--strict", options.isStrict,
                     "Fail if anything is left out or worth a look;\n"
                     "without --source only");
    command.add_flag("--keep-importer", options.keepImporter,
                     "Use one importer of the source for all paths\n"
                     "instead of a fresh one for each");
    addPaths(command, options.paths);
}

/// Adds the option that says for whom something is told.
void addWording(CLI::App& command, std::string& format) {
    format = "text";
    command.add_option("-f,--format", format, "text: for people;\njson: one line for each path")
        ->type_name("FORMAT")
        ->capture_default_str()
        ->check(knownTo([](std::string_view word) { return word == "text" || word == "json"; },
                        wordings, "the formats are text and json"));
}

void addDetect(CLI::App& app, DetectRequest& request, Words& words) {
    CLI::App& command = *app.add_subcommand("detect", "Tell what files are, and why");
    addWording(command, words.format);
    addPaths(command, request.paths);
}

void addCheck(CLI::App& app, CheckRequest& request, Words& words) {
    CLI::App& command =
        *app.add_subcommand("check", "Tell what an import would bring, what it would\n"
                                     "leave out and what is worth a look");
    addKind(command, words);
    addWording(command, words.format);
    addPaths(command, request.paths);
}

/// How the words, which have been checked, ask to read.
ReadAs readAs(const Words& words) {
    if (const auto source = sourceNamed(words.source)) {
        return *source;
    }
    if (const auto layout = layoutWithIdentifier(words.layout)) {
        return *layout;
    }
    return {};
}

/// The command that was given; null if there is none.
const CLI::App* commandIn(const CLI::App& app) {
    const std::vector<CLI::App*> given = app.get_subcommands();
    return given.empty() ? nullptr : given.front();
}

/// What is wrong with a word that looks like an option of a command, or of the tool itself.
std::string unknownOption(std::string_view word, const CLI::App& app) {
    std::vector<std::string> options;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            options.push_back("--" + name);
        }
    }
    const std::vector<std::string_view> names(options.begin(), options.end());
    return unknown(word.substr(0, word.find('=')), names,
                   (names.size() == 1 ? "the only option is " : "the options are ") +
                       listed(names));
}

/// What is wrong with a word that belongs nowhere.
std::string unexpected(std::string_view word, const CLI::App& app) {
    const CLI::App* const command = commandIn(app);
    if (word.starts_with('-')) {
        return unknownOption(word, command == nullptr ? app : *command);
    }
    return command == nullptr ? unknown(word, commandNames, theCommands())
                              : quoted(word) + " is not expected";
}

/// What is wrong with the number of values of an option.
std::string wrongNumber(const std::string& name, const CLI::App& command) {
    const CLI::Option* const option = command.get_option_no_throw(name);
    const bool isRepeated = option != nullptr && option->count() > 1;
    return name + (isRepeated
                       ? " may be given only once"
                       : " needs a " + (option == nullptr ? "value" : option->get_type_name()));
}

/// What is wrong with the command line, in one sentence.
std::string complaint(const CLI::Error& error, const CLI::App& app) {
    // A word that belongs nowhere may be why another is missing.
    for (const std::string& word : app.remaining(true)) {
        if (word != "--") {
            return unexpected(word, app);
        }
    }
    const CLI::App* const command = commandIn(app);
    if (command == nullptr) {
        return "a command is missing; " + theCommands();
    }
    const std::string text = error.what();
    const std::size_t name = std::min(text.find("--"), text.size());
    const std::string option = text.substr(name, text.find_first_of(" :=", name) - name);
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch)) {
        return wrongNumber(option, *command);
    }
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ConversionError)) {
        return option + " takes no value"; // only a flag is converted
    }
    return displayText(text);
}

/// Where to read what the command line may be.
std::string helpFor(const CLI::App& app) {
    const CLI::App* const command = commandIn(app);
    return "rellinor " + (command == nullptr ? "" : command->get_name() + ' ') + "--help";
}

} // namespace

std::expected<Request, int> readCommandLine(int argc, char* argv[]) {
    CLI::App app("Imports what other password managers and browsers hold", "rellinor");
    app.set_version_flag("-V,--version", std::string("rellinor ") + ::rellinor_version());
    app.require_subcommand(1);
    app.get_formatter()->column_width(27);
    ImportRequest import;
    DetectRequest detect;
    CheckRequest check;
    Words importWords;
    Words checkWords;
    Words detectWords;
    addImport(app, import, importWords);
    addCheck(app, check, checkWords);
    addDetect(app, detect, detectWords);
    app.add_subcommand("sources", "List the sources");
    app.add_subcommand("layouts", "List the layouts");
    app.failure_message([](const CLI::App* given, const CLI::Error& error) {
        return "rellinor: " + complaint(error, *given) + " (" + helpFor(*given) + " tells more)\n";
    });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return std::unexpected(app.exit(error) == 0 ? ExitStatus::success : ExitStatus::wrongUsage);
    }

    if (app.got_subcommand("import")) {
        import.options.as = readAs(importWords);
        import.options.format = *formatNamed(importWords.format);
        return import;
    }
    if (app.got_subcommand("detect")) {
        detect.wording = wordingNamed(detectWords.format);
        return detect;
    }
    if (app.got_subcommand("check")) {
        check.as = readAs(checkWords);
        check.wording = wordingNamed(checkWords.format);
        return check;
    }
    if (app.got_subcommand("layouts")) {
        return LayoutsRequest();
    }
    return SourcesRequest();
}

} // namespace Rellinor::Host
