#include "Host/Advice.hpp"

#include <cstddef>
#include <exception>
#include <string_view>
#include <utility>
#include <vector>

#include "Host/Counted.hpp"
#include "Host/DisplayText.hpp"
#include "Host/Inspection/Inspection.hpp"
#include "Host/Inspection/Places.hpp"
#include "Host/Mismatch.hpp"
#include "Host/Obstacle.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

std::string joined(const std::vector<std::string>& parts, std::string_view joiner) {
    std::string text;
    for (const std::string& part : parts) {
        text += text.empty() ? "" : joiner;
        text += part;
    }
    return text;
}

/// How to ask for more, as it can be pasted into a shell; without the path if that is odd.
std::string command(const std::string& path, ImportSource source) {
    constexpr std::string_view odd = "\t\n\r\"'`$\\!*?[]{}()<>|&;~#";
    std::string text = "rellinor check";
    const bool isOdd = path.find_first_of(odd) != std::string::npos || path.starts_with('-') ||
                       displayText(path) != path;
    if (!isOdd) {
        const std::string_view quote = path.contains(' ') ? "'" : "";
        text += " --source ";
        text += nameOf(source);
        text += ' ';
        text += quote;
        text += path;
        text += quote;
    }
    return text;
}

std::string described(const Remark& remark, std::string_view place) {
    constexpr std::size_t mostPlaces = 3;

    return (remark.places.empty() ? "" : describedPlaces(remark.places, place, mostPlaces) + ": ") +
           remark.text;
}

std::string leftOut(const Inspection& inspection) {
    const std::size_t count = inspection.countOfLeftOut();
    return (inspection.count
                ? std::to_string(count) + " of " + counted(*inspection.count, inspection.unit)
                : counted(count, inspection.unit)) +
           " left out";
}

/// What an inspection found; what looks wrong is put in words if it is one thing alone.
std::string gist(const Inspection& inspection, bool imported) {
    const std::size_t things = inspection.wrong.size();
    std::vector<std::string> parts;
    if (imported && inspection.countOfLeftOut() > 0) {
        parts.push_back(leftOut(inspection));
    }
    if (things == 1) {
        parts.push_back(described(inspection.wrong.front(), inspection.place));
    } else if (things > 1) {
        parts.push_back(std::to_string(things) + " things look wrong");
    }
    return joined(parts, "; ");
}

std::string composed(const std::string& path, ImportSource source, const RecordsResult& result) {
    Mismatch other = mismatch(path, source);
    if (!other.proposal.empty() && !other.isNearlyRight) {
        return std::move(other.proposal);
    }
    if (std::string reason = obstacle(path, source); !reason.empty()) {
        return reason;
    }
    const std::string text = gist(inspect(path, source, result), result.has_value());
    return text.empty() ? other.proposal : text + " (" + command(path, source) + " tells more)";
}

} // namespace

std::string advice(const std::string& path, ImportSource source, const RecordsResult& result) {
    // What cannot be told, for lack of memory above all, must not keep the records from arriving.
    try {
        return composed(path, source, result);
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace Rellinor::Host
