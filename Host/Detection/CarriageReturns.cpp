#include <algorithm>
#include <utility>

#include "Host/Detection/Recognisers.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

namespace {

/// What the text would be with line feeds.
std::optional<Detection> detectMended(const std::string& path, std::string_view beginning) {
    std::string mended(beginning);
    std::ranges::replace(mended, '\r', '\n');
    if (auto found = detectNamedColumns(mended)) {
        return found;
    }
    if (auto found = detectRecordLines(path, withoutByteOrderMark(beginning), '\r')) {
        return found;
    }
    return detectPositions(mended);
}

} // namespace

std::optional<Detection> detectCarriageReturns(const std::string& path,
                                               std::string_view beginning) {
    constexpr std::string_view advice = "save it with line feeds";

    if (!hasCarriageReturnsOnly(beginning)) {
        return std::nullopt;
    }
    auto found = detectMended(path, beginning);
    if (!found || found->layout.empty()) {
        return unknown("its lines end with carriage returns alone", advice);
    }
    return nearlyRead(*std::move(found), " whose lines end with carriage returns alone", advice);
}

} // namespace Rellinor::Host
