#include "Host/CheckCommand.hpp"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

#include "Host/Counted.hpp"
#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/Inspection/Inspection.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

/// "line 7", "lines 7 and 9", and of many only the first.
std::string placesOf(const Remark& remark, std::string_view noun) {
    constexpr std::size_t most = 12;

    std::string text(noun);
    text += remark.places.size() == 1 ? " " : "s ";
    const std::size_t shown = std::min(remark.places.size(), most);
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) {
            text += i + 1 == remark.places.size() ? " and " : ", ";
        }
        text += std::to_string(remark.places[i]);
    }
    if (remark.places.size() > shown) {
        text += " and " + std::to_string(remark.places.size() - shown) + " more";
    }
    return text;
}

void write(std::string_view heading, const std::vector<Remark>& remarks, std::string_view noun,
           std::ostream& out) {
    if (remarks.empty()) {
        return;
    }
    out << "  " << heading << ":\n";
    for (const Remark& remark : remarks) {
        out << "    ";
        if (!remark.places.empty()) {
            out << placesOf(remark, noun) << ": ";
        }
        out << displayText(remark.text) << '\n';
    }
}

void write(const RecordsResult& result, const Inspection& inspection, std::ostream& out) {
    if (!result) {
        out << "  nothing would arrive: " << result.error().localizedDescription() << '\n';
    } else {
        const std::size_t passwords = result->passwords.size();
        const std::size_t notes = result->notes.size();
        const std::size_t cards = result->cards.size();
        out << "  " << counted(passwords + notes + cards, "record")
            << " would arrive: " << counted(passwords, "password") << ", " << counted(notes, "note")
            << ", " << counted(cards, "card") << '\n';
    }
    if (const std::size_t count = inspection.countOfLeftOut(); count > 0) {
        write(counted(count, inspection.unit) + " would be left out", inspection.leftOut,
              inspection.place, out);
    }
    write("looks wrong", inspection.wrong, inspection.place, out);
    write("never imported", inspection.notImported, inspection.place, out);
}

/// Checks one path; whether everything would arrive and nothing looks wrong.
bool check(const std::string& path, std::optional<ImportSource> source, std::ostream& out) {
    out << displayText(path) << ": ";
    if (!source) {
        const Detection detection = detect(path);
        if (!detection.source) {
            out << described(detection) << "\n  nothing was checked\n";
            return false;
        }
        source = detection.source;
    }
    bool clean = false;
    RecordsImporter().records(
        URL::fileURLWithPath(path), *source, [&](const RecordsResult& result) {
            const Inspection inspection = inspect(path, *source, result);
            out << "read as " << nameOf(*source);
            if (inspection.count) {
                out << ", " << counted(*inspection.count, inspection.unit);
            }
            out << '\n';
            write(result, inspection, out);
            clean = result && inspection.leftOut.empty() && inspection.wrong.empty();
        });
    return clean;
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
