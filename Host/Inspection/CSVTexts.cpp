#include "Host/Inspection/CSVTexts.hpp"

#include <algorithm>
#include <array>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/CSVInspection.hpp"

namespace Rellinor::Host {

namespace {

/// Whether a cell that stands in quotes has doubled ones inside. Those of any other cell may be
/// meant.
bool hasDoubledQuote(std::string_view cell) noexcept {
    return cell.size() > 3 && cell.starts_with('"') && cell.ends_with('"') &&
           unquoted(cell).contains("\"\"");
}

bool hasEntity(std::string_view text) noexcept {
    static constexpr std::array<std::string_view, 7> entities = {
        "&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&#39;", "&#039;"};
    for (std::size_t i = text.find('&'); i < text.size(); i = text.find('&', i + 1)) {
        if (std::ranges::any_of(entities, [&](std::string_view entity) {
                return text.substr(i).starts_with(entity);
            })) {
            return true;
        }
    }
    return false;
}

} // namespace

void CSVTexts::lookAtPassword(std::string_view cell, std::size_t line) {
    if (hasDoubledQuote(cell)) {
        addOnce(_doubledQuotesInPassword, line);
    }
    if (hasEntity(cell)) {
        addOnce(_entities, line);
    }
    lookForBackslashes(cell, line, _doubledBackslashesInPassword);
}

void CSVTexts::lookAtOther(std::string_view cell, std::size_t line) {
    if (hasDoubledQuote(cell)) {
        addOnce(_doubledQuotes, line);
    }
    lookForBackslashes(cell, line, _doubledBackslashes);
}

void CSVTexts::lookForBackslashes(std::string_view text, std::size_t line, Remark& doubled) {
    for (std::size_t begin = text.find('\\'); begin < text.size();) {
        const std::size_t end = std::min(text.find_first_not_of('\\', begin), text.size());
        if ((end - begin) % 2 == 0) {
            addOnce(doubled, line);
        } else {
            _hasLoneBackslash = true;
        }
        begin = text.find('\\', end);
    }
}

void CSVTexts::report(Inspection& inspection, bool escapesBackslashes) const {
    addIfAnywhere(inspection.wrong, _doubledQuotesInPassword);
    addIfAnywhere(inspection.wrong, _doubledQuotes);
    // A file with a backslash alone was not written by one that doubles them.
    if (escapesBackslashes && !_hasLoneBackslash) {
        addIfAnywhere(inspection.wrong, _doubledBackslashesInPassword);
        addIfAnywhere(inspection.wrong, _doubledBackslashes);
    }
    addIfAnywhere(inspection.wrong, _entities);
}

} // namespace Rellinor::Host
