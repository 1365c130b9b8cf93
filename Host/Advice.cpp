#include "Host/Advice.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ranges>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "Host/Counted.hpp"
#include "Host/DetectionWords.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ReportWords.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

/// How to ask for more, as it can be pasted into a shell; without the path if that is odd.
std::string command(const std::string& path, const ReadAs& as) {
    constexpr std::string_view odd = "\t\n\r\"'`$\\!*?[]{}()<>|&;~#";
    std::string text = "rellinor check";
    const bool isOdd = path.find_first_of(odd) != std::string::npos || path.starts_with('-') ||
                       displayText(path) != path;
    if (!isOdd) {
        const std::string_view quote = path.contains(' ') ? "'" : "";
        if (const auto* const source = std::get_if<ImportSource>(&as)) {
            text += " --source ";
            text += identifier(*source);
        } else if (const auto* const layout = std::get_if<Layout>(&as)) {
            text += " --layout ";
            text += identifier(*layout);
        }
        text += ' ';
        text += quote;
        text += path;
        text += quote;
    }
    return text;
}

/// The parts that never arrive; their name if there is one alone.
std::string notRead(std::span<const Unread> unread) {
    return (unread.size() == 1 ? described(unread.front())
                               : std::to_string(unread.size()) + " parts") +
           " not read";
}

/// The findings in the order in which a person should hear of them: first what makes a file useless
/// or incomplete, then what is found most often.
std::vector<const Finding*> gravestFirst(std::span<const Finding> findings) {
    const auto isGrave = [](const Finding& finding) {
        switch (finding.kind) {
            using enum FindingKind;
        case stillEncrypted:
        case damaged:
        case refusedForItsCost:
        case locked:
            return true;
        default:
            return false;
        }
    };
    std::vector<const Finding*> sorted;
    for (const Finding& finding : findings) {
        sorted.push_back(&finding);
    }
    std::ranges::sort(sorted, {}, [&](const Finding* finding) {
        return std::tuple(!isGrave(*finding), ~finding->places.count, finding);
    });
    return sorted;
}

/// What a field of a browser's store holds.
std::string_view encryptedThing(std::string_view field) {
    if (field.contains("sername")) {
        return "user name";
    }
    return field.contains("note") ? "note" : "password";
}

std::string inWords(const Finding& finding, PlaceUnit unit) {
    constexpr std::size_t mostPlaces = 3;

    if (finding.kind == FindingKind::stillEncrypted) {
        const std::size_t count = finding.places.count;
        return counted(count, encryptedThing(finding.field)) + (count == 1 ? " is" : " are") +
               " still encrypted";
    }
    std::string words = described(finding, unit, mostPlaces);
    words.pop_back(); // the full stop
    return words;
}

/// What is found in a report, the gravest in words.
std::vector<std::string> gist(const ImportReport& report, const ReadAs& as) {
    constexpr std::size_t mostFindings = 2;

    std::vector<std::string> parts;
    if (const std::uint64_t count = countOfLeftOut(report); count > 0) {
        parts.push_back(std::to_string(count) + " of " + counted(report.recordCount(), "record") +
                        " left out");
    }
    const std::vector<const Finding*> findings = gravestFirst(report.findings());
    for (const Finding* const finding : findings | std::views::take(mostFindings)) {
        parts.push_back(inWords(*finding, report.placeUnit()));
    }
    if (findings.size() > mostFindings) {
        parts.push_back(counted(findings.size() - mostFindings, "other thing") + " worth a look");
    }
    // A source never brings more than its few fields along, which is no news.
    if (!report.unread().empty() && !std::holds_alternative<ImportSource>(as)) {
        parts.push_back(notRead(report.unread()));
    }
    return parts;
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += text.empty() ? "" : "; ";
        text += part;
    }
    return text;
}

} // namespace

std::string advice(const std::string& path, const ReadAs& as, const Detection& detected,
                   const ImportedExport& imported) {
    const ImportReport& report = imported.report;
    const bool isExplained =
        !imported.records && report.failure().reason == detected.obstacle; // by the detection
    if (const auto* const source = std::get_if<ImportSource>(&as);
        source != nullptr && !isExplained) {
        if (std::string other = objection(detected, *source); !other.empty()) {
            return other;
        }
    }
    if (!imported.records) {
        return refusal(detected, as, report.failure(), report.placeUnit());
    }
    if (std::holds_alternative<ImportSource>(as) && isHindered(detected)) {
        return refusal(detected, as, {}, report.placeUnit());
    }
    std::string text = joined(gist(report, as));
    if (!text.empty()) {
        text += " (" + command(path, as) + " tells more)";
    }
    if (report.layout() && std::holds_alternative<std::monostate>(as)) {
        text = "read as " + std::string(identifier(*report.layout())) +
               (text.empty() ? "" : "; " + text);
    }
    return text;
}

} // namespace Rellinor::Host
