#include "Host/Mismatch.hpp"

#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"

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

} // namespace

Mismatch mismatch(const std::string& path, ImportSource source) {
    const Detection detection = detect(path);
    if (isAsTaken(detection, source)) {
        return {};
    }
    return {.proposal = proposal(detection),
            .isNearlyRight = detection.nearly && sameImporter(*detection.nearly, source)};
}

} // namespace Rellinor::Host
