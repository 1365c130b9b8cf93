#include "Host/CheckCommand.hpp"

#include <cstddef>
#include <new>
#include <ostream>
#include <sstream>
#include <string_view>
#include <utility>

#include <Rellinor/Rellinor.hpp>

#include "Host/Counted.hpp"
#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/Inspection/Inspection.hpp"
#include "Host/Inspection/Places.hpp"
#include "Host/Mismatch.hpp"
#include "Host/Obstacle.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::size_t mostPlaces = 12; // of a remark

void write(std::string_view heading, const std::vector<Remark>& remarks, std::string_view noun,
           std::ostream& out) {
    if (remarks.empty()) {
        return;
    }
    out << "  " << heading << ":\n";
    for (const Remark& remark : remarks) {
        out << "    ";
        if (!remark.places.empty()) {
            out << describedPlaces(remark.places, noun, mostPlaces) << ": ";
        }
        out << displayText(remark.text) << '\n';
    }
}

void writeOutcome(const RecordsResult& result, std::ostream& out) {
    if (!result) {
        out << "  nothing would arrive: " << result.error().localizedDescription() << '\n';
        return;
    }
    const std::size_t passwords = result->passwords.size();
    const std::size_t notes = result->notes.size();
    const std::size_t cards = result->cards.size();
    out << "  " << counted(passwords + notes + cards, "record")
        << " would arrive: " << counted(passwords, "password") << ", " << counted(notes, "note")
        << ", " << counted(cards, "card") << '\n';
}

bool isClean(const RecordsResult& result, const Inspection& inspection) {
    return result && inspection.leftOut.empty() && inspection.wrong.empty();
}

void writeNothingToSay(const Inspection& inspection, std::ostream& out) {
    out << "  ";
    if (inspection.count && inspection.notImported.empty()) {
        out << "everything would arrive, ";
    } else if (inspection.count) {
        out << "every " << inspection.unit << " would arrive, ";
    }
    out << "nothing looks wrong\n";
}

void write(const RecordsResult& result, const Inspection& inspection, std::ostream& out) {
    if (inspection.count) {
        out << ", " << counted(*inspection.count, inspection.unit);
    }
    out << '\n';
    writeOutcome(result, out);
    if (const std::size_t count = inspection.countOfLeftOut(); result && count > 0) {
        write(counted(count, inspection.unit) + " would be left out", inspection.leftOut,
              inspection.place, out);
    }
    write("looks wrong", inspection.wrong, inspection.place, out);
    if (isClean(result, inspection)) {
        writeNothingToSay(inspection, out);
    }
    write("never imported from this source", inspection.notImported, inspection.place, out);
}

/// What an inspection tells of a file, unless that is rather something else: what reading it as
/// `source` makes of it is noise then.
Inspection inspection(const std::string& path, ImportSource source, const RecordsResult& result) {
    Inspection found = inspect(path, source, result);
    Mismatch other = mismatch(path, source);
    const bool foundNothing = found.leftOut.empty() && found.wrong.empty();
    if (!other.proposal.empty() && (!other.isNearlyRight || foundNothing)) {
        found.wrong = {{.text = std::move(other.proposal), .places = {}}};
        found.notImported.clear();
    }
    return found;
}

/// Checks what one source makes of a path; whether everything would arrive and nothing looks wrong.
bool check(const std::string& path, ImportSource source, std::ostream& out) {
    bool clean = false;
    out << "read as " << nameOf(source);
    RecordsImporter().records(URL::fileURLWithPath(path), source, [&](const RecordsResult& result) {
        try {
            const Inspection found = inspection(path, source, result);
            std::ostringstream told; // all of it, or nothing if memory runs out meanwhile
            told.exceptions(std::ios::badbit);
            write(result, found, told);
            out << told.view();
            clean = isClean(result, found);
        } catch (const std::bad_alloc&) {
            out << "\n  there is not enough memory to tell more\n";
        }
    });
    return clean;
}

/// Checks one path; whether everything would arrive and nothing looks wrong.
bool check(const std::string& path, std::optional<ImportSource> source, std::ostream& out) {
    out << displayPath(path) << ": ";
    std::string reason = obstacle(path);
    if (reason.empty() && !source) {
        const Detection detection = detect(path);
        if (!detection.source) {
            out << described(detection) << "\n  nothing was checked\n";
            return false;
        }
        source = detection.source;
    }
    if (reason.empty()) {
        reason = obstacle(path, *source);
    }
    if (!reason.empty()) {
        out << "not checked: " << reason << '\n';
        return false;
    }
    return check(path, *source, out);
}

} // namespace

int runCheck(const std::vector<std::string>& paths, std::optional<ImportSource> source,
             std::ostream& out) {
    int status = ExitStatus::success;
    for (const std::string& path : paths) {
        if (!check(path, source, out)) {
            status = ExitStatus::importFailed;
        }
    }
    return status;
}

} // namespace Rellinor::Host
