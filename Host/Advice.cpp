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

/// What the file is, if it is not what it was taken for.
std::string otherLayout(const std::string& path, ImportSource source) {
    const Detection detection = detect(path);
    if (detection.layout.empty() || detection.confidence == Confidence::possible ||
        (detection.source && sameImporter(*detection.source, source))) {
        return {};
    }
    return proposal(detection);
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
    if (std::string other = otherLayout(path, source); !other.empty()) {
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
        return {};
    }
    return joined(parts, ", ") + " (rellinor check tells more)";
}

} // namespace Rellinor::Host
