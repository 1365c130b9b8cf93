#include "Host/CheckCommand.hpp"

#include <cstddef>
#include <new>
#include <ostream>
#include <sstream>
#include <string_view>
#include <variant>

#include "Host/Counted.hpp"
#include "Host/DetectionWords.hpp"
#include "Host/Difference.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/Input.hpp"
#include "Host/ReportWords.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::size_t mostPlaces = 12; // of a remark

void writeRemarks(const std::string& heading, const auto& remarks, PlaceUnit unit,
                  std::ostream& out) {
    if (!remarks.empty()) {
        out << "  " << heading << ":\n";
    }
    for (const auto& remark : remarks) {
        out << "    " << described(remark, unit, mostPlaces) << '\n';
    }
}

void writeArriving(const ImportedRecords& records, std::ostream& out) {
    const std::size_t passwords = records.passwords.size();
    const std::size_t notes = records.notes.size();
    const std::size_t cards = records.cards.size();
    out << "  " << counted(passwords + notes + cards, "record")
        << " would arrive: " << counted(passwords, "password") << ", " << counted(notes, "note")
        << ", " << counted(cards, "card") << '\n';
}

void writeReport(const ImportReport& report, std::ostream& out) {
    writeRemarks(counted(countOfLeftOut(report), "record") + " would be left out", report.leftOut(),
                 report.placeUnit(), out);
    writeRemarks("worth a look", report.findings(), report.placeUnit(), out);
    if (report.leftOut().empty() && report.findings().empty()) {
        out << (report.unread().empty() ? "  everything would arrive\n"
                                        : "  every record would arrive\n");
    }
    if (!report.unread().empty()) {
        out << "  would not be read:\n";
    }
    for (const Unread& unread : report.unread()) {
        out << "    " << described(unread) << '\n';
    }
    if (!report.isComplete()) {
        out << "  there is not enough memory to tell all\n";
    }
}

/// Says how the records of a source differ from those of the faithful reading, if the file has one;
/// whether they do not.
bool writeDifference(const ExportFile& file, const ImportedRecords& records, std::ostream& out) {
    const ImportedExport faithful = readExport(file);
    if (faithful.report.failure().reason == FailureReason::outOfMemory) {
        out << "  there is not enough memory to compare\n";
        return false;
    }
    if (!faithful.records) {
        return true;
    }
    const Difference difference = differenceOf(records, *faithful.records);
    const bool isSame = difference == Difference();
    out << "  the faithful reading, " << identifier(faithful.report.layout().value_or(Layout()));
    if (isSame) {
        out << ", gives the same records\n";
    } else {
        out << ", gives other records: against it there are " << counted(difference.more, "record")
            << " more, " << difference.fewer << " fewer and " << difference.other << " other\n";
    }
    return isSame;
}

/// Tells what would arrive; whether that is everything, and nothing is worth a look.
bool writeSuccess(const ExportFile& file, const ReadAs& as, const ImportedExport& imported,
                  std::ostream& out) {
    const ImportReport& report = imported.report;
    writeArriving(*imported.records, out);
    writeReport(report, out);
    const bool isSame =
        !std::holds_alternative<ImportSource>(as) || writeDifference(file, *imported.records, out);
    return isSame && isWithoutLoss(report);
}

/// Checks one path; whether everything would arrive and nothing is worth a look.
bool check(const std::string& path, const ReadAs& as, std::ostream& out) {
    const Input input(path);
    const ExportFile& file = input.file();
    const Detection detected = lookAt(file);
    const auto* const source = std::get_if<ImportSource>(&as);
    // The import of a source would make a file where there is none, and take what is in a pipe.
    if (detected.obstacle == FailureReason::missing ||
        detected.obstacle == FailureReason::notAFile) {
        out << "nothing would arrive: " << description(detected.obstacle) << '\n';
        return false;
    }
    const ImportedExport imported = readExport(file, {.as = as});
    const ImportReport& report = imported.report;
    if (source != nullptr) {
        out << "read as " << identifier(*source) << ", ";
    } else if (report.layout()) {
        out << "read as " << identifier(*report.layout()) << ", ";
    }
    if (!imported.records) {
        out << "nothing would arrive: "
            << refusal(detected, as, report.failure(), report.placeUnit()) << '\n';
    } else {
        out << counted(report.recordCount(), "record") << '\n';
    }
    const bool isExplained = !imported.records && report.failure().reason == detected.obstacle;
    const std::string other = source == nullptr || isExplained ? "" : objection(detected, *source);
    if (!other.empty()) {
        out << "  " << other << '\n';
    }
    return imported.records && writeSuccess(file, as, imported, out) && other.empty();
}

/// The same as a JSON object.
bool checkForPrograms(const std::string& path, const ReadAs& as, std::ostream& out) {
    const Input input(path);
    const Detection detected = lookAt(input.file());
    const auto* const source = std::get_if<ImportSource>(&as);
    JSONText json;
    json.beginObject();
    json.member("path", displayText(path));
    json.key("detection");
    writeDetection(detected, json);
    const bool isThere =
        detected.obstacle != FailureReason::missing && detected.obstacle != FailureReason::notAFile;
    bool isClean = false;
    if (isThere) {
        const ImportedExport imported = readExport(input.file(), {.as = as});
        isClean = imported.records && isWithoutLoss(imported.report);
        const auto layout = imported.report.layout();
        json.member("layout", layout.transform([](Layout known) { return identifier(known); }));
        if (!imported.records) {
            json.key("failure");
            writeFailure(imported.report, json);
        } else {
            json.member("passwords", imported.records->passwords.size());
            json.member("notes", imported.records->notes.size());
            json.member("cards", imported.records->cards.size());
            json.key("report");
            writeReport(imported.report, json);
            const ImportedExport faithful =
                source != nullptr ? readExport(input.file()) : ImportedExport();
            if (source != nullptr && faithful.records) {
                const Difference difference = differenceOf(*imported.records, *faithful.records);
                isClean = isClean && difference == Difference();
                json.key("difference");
                json.beginObject();
                json.member("more", difference.more);
                json.member("fewer", difference.fewer);
                json.member("other", difference.other);
                json.endObject();
            }
        }
    }
    json.endObject();
    out << json.written() << '\n';
    return isClean;
}

} // namespace

int runCheck(const std::vector<std::string>& paths, const ReadAs& as, Wording wording,
             std::ostream& out) {
    int status = ExitStatus::success;
    for (const std::string& path : paths) {
        if (wording == Wording::programs) {
            if (!checkForPrograms(path, as, out)) {
                status = ExitStatus::importFailed;
            }
            continue;
        }
        out << displayPath(path) << ": ";
        bool isClean = false;
        try {
            std::ostringstream told; // all of it, or nothing if memory runs out meanwhile
            told.exceptions(std::ios::badbit);
            isClean = check(path, as, told);
            out << told.view();
        } catch (const std::bad_alloc&) {
            out << "there is not enough memory to tell more\n";
        }
        if (!isClean) {
            status = ExitStatus::importFailed;
        }
    }
    return status;
}

} // namespace Rellinor::Host
