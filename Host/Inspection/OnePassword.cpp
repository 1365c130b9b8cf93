#include "Host/Inspection/Inspectors.hpp"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "Host/DisplayText.hpp"
#include "Host/FileContents.hpp"
#include "Host/Inspection/EncodingProblem.hpp"
#include "Host/Inspection/JSONTree.hpp"
#include "Host/Inspection/OnePasswordRecords.hpp"
#include "Host/Inspection/PIFRecordStarts.hpp"
#include "Host/Inspection/Settled.hpp"
#include "Host/Inspection/TextLines.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

namespace {

/// Whether a line that is passed over looks like a record all the same.
bool looksLikeRecord(std::string_view line) {
    std::string_view blank = line.substr(0, std::min(line.find('{'), line.size()));
    if (blank.size() == line.size()) {
        return false;
    }
    if (blank.ends_with(byteOrderMark)) {
        blank.remove_suffix(byteOrderMark.size());
    }
    return isBlank(blank);
}

/// The lines that begin with a brace, with a comma between two of them, as an import reads them.
std::string joinedRecords(std::string_view text, Inspection& inspection) {
    std::string joined;
    joined.reserve(text.size());
    TextLines lines(text);
    for (TextLine line; lines.next(line);) {
        if (line.text.starts_with('{')) {
            joined += joined.empty() ? "" : ",";
            joined += line.text;
        } else if (looksLikeRecord(line.text)) {
            Inspection::add(inspection.wrong, "passed over, since a blank stands before its {",
                            line.number);
        }
    }
    return joined;
}

std::string_view problemOf(JSONFailure::Reason reason) {
    switch (reason) {
    case JSONFailure::Reason::cutShort:
        return "a record that is cut short, which fails the whole file";
    case JSONFailure::Reason::tooDeep:
        return "a record nested too deep to be read, which fails the whole file";
    case JSONFailure::Reason::somethingBehind:
        return "something behind the end of a record, which fails the whole file";
    case JSONFailure::Reason::longExponent:
    case JSONFailure::Reason::other:
        break;
    }
    return "a record that is not valid JSON, which fails the whole file";
}

/// Finds the lines that make a file fail.
void findBrokenLines(std::string_view text, Inspection& inspection) {
    constexpr std::size_t depth = JSONTree::deepestNesting - 2; // within the list of records
    constexpr std::size_t most = 1000;                          // beyond, it is another format

    std::size_t found = 0;
    TextLines lines(text);
    for (TextLine line; lines.next(line);) {
        if (!line.text.starts_with('{')) {
            continue;
        }
        const auto tree = JSONTree::parsed({line.text}, {}, depth);
        if (!tree && tree.error().reason == JSONFailure::Reason::longExponent) {
            continue; // it is not this one
        }
        if (!tree && ++found > most) {
            Inspection::add(inspection.wrong, "the first of more lines that are no records",
                            line.number);
            return;
        }
        if (!tree) {
            Inspection::add(inspection.wrong, problemOf(tree.error().reason), line.number);
        }
    }
}

void inspectRecords(std::string_view text, std::string_view joined, const RecordsResult& result,
                    Inspection& inspection) {
    const auto tree =
        JSONTree::parsed({"{ \"records\": [", joined, "] }"}, OnePasswordRecords::words);
    const auto list = tree ? OnePasswordRecords::listIn(tree->root()) : std::nullopt;
    if (!list) {
        return; // the file has changed since it was imported
    }
    OnePasswordRecords records(inspection);
    PIFRecordStarts starts(text, joined);
    for (const JSONValue& record : *list) {
        records.add(record, starts.next());
    }
    records.finish();
    for (const std::size_t line : starts.takeOddLines()) {
        Inspection::add(inspection.wrong, "not exactly one record: the file is damaged there",
                        line);
    }
    settleCount(inspection, list->count(), result);
}

/// What is wrong with a file as a whole; empty if nothing is.
std::string_view problemOf(std::string_view text, std::string_view joined) {
    if (isBlank(text)) {
        return "the file is empty";
    }
    if (hasCarriageReturnsOnly(text)) {
        return "all is one line: save the file with line feeds instead of carriage returns";
    }
    return joined.empty() ? "no line begins with {, so there is no record in the file" : "";
}

/// Whether a file is the one in the folder of an export that has attachments beside it.
bool hasAttachments(const std::string& path) {
    const std::filesystem::path file(path);
    std::error_code error;
    return file.filename() == "data.1pif" &&
           std::filesystem::is_directory(file.parent_path() / "attachments", error);
}

} // namespace

Inspection inspectOnePassword(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    inspection.unit = "record";
    inspection.place = "line";
    const auto contents = contentsOf(path);
    if (!contents) {
        return inspection;
    }
    if (auto problem = encodingProblem(*contents)) {
        inspection.wrong.push_back(*std::move(problem));
        return inspection;
    }
    const std::string_view text = withoutByteOrderMark(*contents);
    const std::string joined = joinedRecords(text, inspection);
    if (const std::string_view problem = problemOf(text, joined); !problem.empty()) {
        inspection.wrong.push_back({.text = std::string(problem), .places = {}});
    }
    if (result) {
        inspectRecords(text, joined, result, inspection);
    } else if (!hasCarriageReturnsOnly(text)) { // which explain it
        findBrokenLines(text, inspection);
    }
    if (hasAttachments(path)) {
        inspection.notImported.push_back(
            {.text = "the attachments in the folder beside the file", .places = {}});
    }
    return inspection;
}

} // namespace Rellinor::Host
