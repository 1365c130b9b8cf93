#include "Host/Inspection/Inspectors.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/CSVInspection.hpp"
#include "Host/Inspection/CSVQuotes.hpp"
#include "Host/Inspection/CSVTexts.hpp"
#include "Host/Inspection/DashlaneIdentifier.hpp"
#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::size_t fewestCells = 5;

/// What the columns of Dashlane's exports are called, of old and new ones.
constexpr std::array<std::string_view, 24> columnNames = {
    "title",     "name",      "service",  "address",      "url",       "website",
    "web site",  "domain",    "login",    "second login", "user name", "username",
    "username2", "username3", "email",    "password",     "note",      "notes",
    "comment",   "comments",  "category", "otpsecret",    "otpurl",    "type"};

bool isNamed(std::string_view cell, std::string_view name) {
    return std::ranges::equal(unquoted(cell), name, sameLetter);
}

/// Whether all that a row says is what columns are called, with one for the password among them.
bool looksLikeHeader(const CSVRow& row) {
    return row.numberOfCells <= CSVRows::mostCells &&
           std::ranges::any_of(row.cells,
                               [](std::string_view cell) { return isNamed(cell, "password"); }) &&
           std::ranges::all_of(row.cells, [](std::string_view cell) {
               return unquoted(cell).empty() ||
                      std::ranges::any_of(
                          columnNames, [&](std::string_view name) { return isNamed(cell, name); });
           });
}

/// The cells of a row by the use that an import makes of them, as they stand.
struct Cells {
    explicit Cells(const CSVRow& row) {
        std::size_t index = 0;
        CSVCells reader(row.text);
        for (std::string_view cell; reader.next(cell); ++index) {
            if (index < texts.size()) {
                texts[index] = cell;
            }
            // What was the last but one is now known to be none of the last two.
            isFilledBetween =
                isFilledBetween || (index >= texts.size() + 2 && !unquoted(password).empty());
            password = std::exchange(last, cell);
        }
    }

    std::array<std::string_view, 3> texts; ///< service, URL and user name
    std::string_view password;             ///< the last but one
    std::string_view last;
    bool isFilledBetween = false; ///< any between the user name and the password
};

class DashlaneInspector {
public:
    explicit DashlaneInspector(Inspection& inspection) : _inspection(&inspection) {}

    void look(const CSVRow& row) {
        const bool runsOn = _quotes.look(row);
        if (!arrives(row)) {
            return;
        }
        const Cells cells(row);
        if (!runsOn) {
            _texts.lookAtPassword(cells.password, row.line);
            for (const std::string_view text : cells.texts) {
                _texts.lookAtOther(text, row.line);
            }
        }
        _between.look(cells.isFilledBetween);
        _last.look(!unquoted(cells.last).empty());
    }

    /// Looks at what only the first row can tell.
    void lookAtFirst(const CSVRow& row) {
        if (std::string separator = otherSeparator(row, fewestCells); !separator.empty()) {
            _inspection->wrong.push_back({std::move(separator), {}});
        }
        if (row.numberOfCells < fewestCells || !looksLikeHeader(row)) {
            return;
        }
        _inspection->wrong.push_back(
            {"the first row looks like a header and arrives as a login", {row.line}});
        if (!isNamed(row.cells[row.numberOfCells - 2], "password")) {
            _inspection->wrong.push_back(
                {"the password is not in the last column but one, from which it is read: texts "
                 "arrive in the wrong places",
                 {}});
        }
    }

    /// @param areOneLine  whether that explains quotes that are not closed
    void report(bool areOneLine) const {
        if (!areOneLine) {
            _quotes.report(*_inspection);
        }
        addIfAnywhere(_inspection->wrong, _overlooked);
        _texts.report(*_inspection);
        _between.report(*_inspection);
        _last.report(*_inspection);
    }

private:
    [[nodiscard]] bool arrives(const CSVRow& row) {
        if (row.numberOfCells < fewestCells) {
            Inspection::add(_inspection->leftOut, "fewer than 5 cells", row.line);
            return false;
        }
        switch (identifierInRow(row)) {
        case DashlaneIdentifier::found:
            Inspection::add(_inspection->leftOut, "an identifier in braces, which no login has",
                            row.line);
            return false;
        case DashlaneIdentifier::overlooked:
            addOnce(_overlooked, row.line);
            break;
        case DashlaneIdentifier::none:
            break;
        }
        return true;
    }

    [[nodiscard]] DashlaneIdentifier identifierInRow(const CSVRow& row) {
        if (!row.text.contains('{')) {
            return DashlaneIdentifier::none;
        }
        _joined.clear();
        CSVCells cells(row.text);
        for (std::string_view cell; cells.next(cell);) {
            _joined += unquoted(cell);
        }
        return identifierIn(_joined);
    }

    Inspection* _inspection;
    CSVQuotes _quotes;
    CSVTexts _texts;
    std::string _joined; ///< the cells of the row that was looked at last
    Remark _overlooked{"an identifier in braces, which no login has, is overlooked at the end of "
                       "the row: it arrives as a login",
                       {}};
    FilledCells _between{"cells between user name and password"};
    FilledCells _last{"last cell"};
};

} // namespace

Inspection inspectDashlane(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    std::optional<CSVRows> rows = rowsToInspect(path, result, inspection);
    if (!rows) {
        return inspection;
    }
    DashlaneInspector inspector(inspection);
    std::size_t count = 0;
    for (CSVRow row; rows->next(row); ++count) {
        if (count == 0) {
            inspector.lookAtFirst(row);
        }
        inspector.look(row);
    }
    if (count == 0) {
        reportBlank(inspection);
    }
    inspector.report(rows->areOneLine());
    if (result) {
        inspection.count = count;
    }
    return inspection;
}

} // namespace Rellinor::Host
