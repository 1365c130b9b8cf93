#include "Host/Advice.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

#include "Host/Counted.hpp"
#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"
#include "Host/Inspection/Inspection.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

bool sameImporter(ImportSource one, ImportSource other) noexcept {
    const auto isKeePass = [](ImportSource source) {
        return source == ImportSource::keePass || source == ImportSource::keePassXC;
    };
    return one == other || (isKeePass(one) && isKeePass(other));
}

/// Whether the file is nothing else than what it was taken for, as far as that can be told.
bool isAsTaken(const Detection& detection, ImportSource source) {
    return detection.layout.empty() || detection.confidence == Confidence::possible ||
           (detection.source && sameImporter(*detection.source, source));
}

std::string joined(const std::vector<std::string>& parts, std::string_view joiner) {
    std::string text;
    for (const std::string& part : parts) {
        text += text.empty() ? "" : joiner;
        text += part;
    }
    return text;
}

} // namespace

std::string advice(const std::string& path, ImportSource source, const RecordsResult& result) {
    const Detection detection = detect(path);
    std::string other = isAsTaken(detection, source) ? "" : proposal(detection);
    // Of columns that are nearly right, the inspection tells more.
    if (!other.empty() && !(detection.nearly && sameImporter(*detection.nearly, source))) {
        return other;
    }
    const Inspection inspection = inspect(path, source, result);
    std::vector<std::string> parts;
    if (const std::size_t count = inspection.countOfLeftOut(); count > 0 && result) {
        parts.push_back(counted(count, inspection.unit) + " left out");
    }
    if (inspection.wrong.size() == 1) {
        parts.push_back(inspection.wrong.front().text);
    } else if (!inspection.wrong.empty()) {
        parts.push_back(counted(inspection.wrong.size(), "thing") + " wrong with the file");
    }
    if (parts.empty()) {
        return other;
    }
    return joined(parts, ", ") + " (rellinor check tells more)";
}

} // namespace Rellinor::Host
