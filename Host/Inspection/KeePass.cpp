#include "Host/Inspection/Inspectors.hpp"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "Host/Inspection/CSVInspection.hpp"
#include "Host/Inspection/KeyedCSV.hpp"
#include "Host/KnownColumns.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<CSVLayout, 2> layouts = {{
    {"KeePass", classicKeePassColumns, {}},
    {"KeePassXC", keePassXCColumns, laterKeePassXCColumns},
}};

/// What an import makes of the columns of a layout.
struct Fork {
    std::size_t service;
    std::size_t username;
    std::size_t password;
    std::size_t url;
    std::size_t group; ///< absent if it is the same as the notes
    std::size_t notes;
};

constexpr Fork classic = {
    .service = 0, .username = 1, .password = 2, .url = 3, .group = 4, .notes = 4};
constexpr Fork xc = {.service = 1, .username = 2, .password = 3, .url = 4, .group = 0, .notes = 5};

std::string column(const CSVLayout& layout, std::size_t index) {
    return "column \"" + std::string(layout.columns[index]) + '"';
}

void lookAtRows(KeyedCSV& file, const Fork& fork, Inspection& inspection) {
    FilledCells group(column(*file.layout(), fork.group));
    FilledCells notes(column(*file.layout(), fork.notes));
    while (const auto row = file.next()) {
        if (!row->cell(fork.username) || !row->cell(fork.password) || !row->cell(fork.url)) {
            Inspection::add(inspection.leftOut, "the row ends before user name, password or URL",
                            row->line());
            continue;
        }
        file.lookAtPassword(fork.password);
        file.lookAtText(fork.service);
        file.lookAtText(fork.username);
        file.lookAtText(fork.url);
        group.look(fork.group != fork.notes && !row->text(fork.group).empty());
        notes.look(!row->text(fork.notes).empty());
    }
    group.report(inspection);
    notes.report(inspection);
}

} // namespace

Inspection inspectKeePass(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    KeyedCSV file(path, result, layouts, inspection);
    const bool isClassic = file.layout() == layouts.data();
    if (file.layout() != nullptr) {
        lookAtRows(file, isClassic ? classic : xc, inspection);
    }
    file.report(isClassic);
    return inspection;
}

} // namespace Rellinor::Host
