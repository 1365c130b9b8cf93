#include "Host/Inspection/Inspection.hpp"

#include <algorithm>
#include <numeric>

#include "Host/Inspection/Inspectors.hpp"

namespace Rellinor::Host {

void Inspection::add(std::vector<Remark>& remarks, std::string_view text, std::size_t place) {
    auto remark = std::ranges::find(remarks, text, &Remark::text);
    if (remark == remarks.end()) {
        remark = remarks.insert(remark, Remark{std::string(text), {}});
    }
    remark->places.push_back(place);
}

std::size_t Inspection::countOfLeftOut() const noexcept {
    return std::accumulate(
        leftOut.begin(), leftOut.end(), std::size_t{0},
        [](std::size_t sum, const Remark& remark) { return sum + remark.places.size(); });
}

Inspection inspect(const std::string& path, ImportSource source, const RecordsResult& result) {
    switch (source) {
    case ImportSource::lastPass:
        return inspectLastPass(path, result);
    case ImportSource::dashlane:
        return inspectDashlane(path, result);
    case ImportSource::keePass:
    case ImportSource::keePassXC:
        return inspectKeePass(path, result);
    case ImportSource::onePassword:
        return inspectOnePassword(path, result);
    case ImportSource::tirel:
        return inspectTirel(path, result);
    case ImportSource::chrome:
        return inspectChrome(path, result);
    case ImportSource::firefox:
        return inspectFirefox(path, result);
    }
    return {};
}

} // namespace Rellinor::Host
