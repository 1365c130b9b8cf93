#include "Host/Inspection/Inspectors.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "Host/Inspection/CSVInspection.hpp"
#include "Host/Inspection/KeyedCSV.hpp"
#include "Host/KnownColumns.hpp"

namespace Rellinor::Host {

namespace {

enum Column : std::uint8_t { url, username, password, extra, name, grouping, favorite };

constexpr std::array<CSVLayout, 1> layouts = {
    {{"LastPass", lastPassColumns, laterLastPassColumns}}};

/// Whether the cells are all there and empty. A row that ends before one of them is not.
bool areEmpty(const KeyedRow& row, std::initializer_list<Column> cells) {
    return std::ranges::all_of(
        cells, [&](Column column) { return row.cell(column).transform(unquoted) == ""; });
}

/// Goes through the rows in step with the logins that arrive.
class LastPassInspector {
public:
    LastPassInspector(KeyedCSV& file, const ImportedRecords& records, Inspection& inspection)
        : _file(&file), _records(&records), _inspection(&inspection) {}

    void look(const KeyedRow& row) {
        if (isLogin(row)) {
            lookAtLogin(row);
        } else {
            lookAtNote(row);
        }
    }

    void report() const {
        _extra.report(*_inspection);
        _grouping.report(*_inspection);
        _favorite.report(*_inspection);
    }

private:
    /// The URL alone makes a row a login or a note, and a login with a URL always arrives. So the
    /// row is the login that arrives next if the URLs are the same: a later login with the URL of a
    /// note there cannot be.
    [[nodiscard]] bool isLogin(const KeyedRow& row) const {
        return row.text(url).empty() || (_logins < _records->passwords.size() &&
                                         _records->passwords[_logins]->url() == row.text(url));
    }

    void lookAtLogin(const KeyedRow& row) {
        if (areEmpty(row, {url, username, password, name})) {
            Inspection::add(_inspection->leftOut,
                            row.text(extra).empty()
                                ? "a login without URL, user name, password and name"
                                : "a login with nothing but extra text: give it a name and export "
                                  "again",
                            row.line());
            return;
        }
        ++_logins;
        _file->lookAtPassword(password);
        for (const Column column : {url, username, name}) {
            _file->lookAtText(column);
        }
        _extra.look(!row.text(extra).empty());
        lookAtRest(row);
    }

    void lookAtNote(const KeyedRow& row) {
        if (areEmpty(row, {name, extra})) {
            Inspection::add(_inspection->leftOut, "a note without name and text", row.line());
            return;
        }
        _file->lookAtText(name);
        _file->lookAtText(extra);
        lookAtRest(row);
    }

    void lookAtRest(const KeyedRow& row) {
        _grouping.look(!row.text(grouping).empty());
        _favorite.look(!row.text(favorite).empty() && row.text(favorite) != "0");
    }

    KeyedCSV* _file;
    const ImportedRecords* _records;
    Inspection* _inspection;
    std::size_t _logins = 0; ///< that have arrived before
    FilledCells _extra{R"(column "extra" of a login)"};
    FilledCells _grouping{R"(column "grouping")"};
    FilledCells _favorite{R"(column "fav")"};
};

} // namespace

Inspection inspectLastPass(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    KeyedCSV file(path, result, layouts, inspection);
    if (file.layout() != nullptr) {
        LastPassInspector inspector(file, *result, inspection);
        while (const auto row = file.next()) {
            inspector.look(*row);
        }
        inspector.report();
    }
    file.report();
    return inspection;
}

} // namespace Rellinor::Host
