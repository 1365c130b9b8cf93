#include "Host/Advice.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
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

/// What is found in a report; a finding is put in words if there is one alone.
std::vector<std::string> gist(const ImportReport& report, const ReadAs& as) {
    constexpr std::size_t mostPlaces = 3;

    std::vector<std::string> parts;
    if (const std::uint64_t count = countOfLeftOut(report); count > 0) {
        parts.push_back(std::to_string(count) + " of " + counted(report.recordCount(), "record") +
                        " left out");
    }
    if (const auto findings = report.findings(); findings.size() == 1) {
        std::string finding = described(findings.front(), report.placeUnit(), mostPlaces);
        finding.pop_back(); // the full stop
        parts.push_back(std::move(finding));
    } else if (!findings.empty()) {
        parts.push_back(counted(findings.size(), "thing") + " worth a look");
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
