#include <algorithm>
#include <utility>

#include "Host/CSVRows.hpp"
#include "Host/Detection/Header.hpp"
#include "Host/Detection/Recognisers.hpp"
#include "Host/OtherSeparators.hpp"

namespace Rellinor::Host {

namespace {

Header parted(std::string_view row, char separator) {
    Header cells;
    for (;;) {
        const std::size_t end = std::min(row.find(separator), row.size());
        cells.push_back(unquoted(row.substr(0, end)));
        if (end == row.size()) {
            return cells;
        }
        row.remove_prefix(end + 1);
    }
}

} // namespace

std::optional<Detection> detectSeparators(std::string_view beginning) {
    CSVRows rows(beginning);
    CSVRow first;
    if (!rows.next(first) || first.cells.size() > 1) {
        return std::nullopt;
    }
    for (const auto& [character, name] : otherSeparators) {
        const Header header = parted(first.text, character);
        if (header.size() <= 2) {
            continue;
        }
        constexpr std::string_view advice = "save it with commas between the columns";
        const std::string between = std::string(name) + " between the columns";
        auto found = detectHeader(header);
        return found ? nearlyRead(*std::move(found), " with " + between, advice)
                     : unknown(between, advice);
    }
    return std::nullopt;
}

} // namespace Rellinor::Host
