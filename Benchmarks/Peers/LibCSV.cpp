// libcsv calls back for every cell and every row; a row is collected, then made a record.

#include <array>
#include <cctype>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include <csv.h>

#include "Benchmarks/Peers/Peers.hpp"
#include "Benchmarks/Peers/PlainRecords.hpp"

namespace Rellinor::Benchmarks {

namespace {

class Row {
public:
    void add(std::string_view cell) {
        if (_size == _cells.size()) {
            _cells.emplace_back();
        }
        _cells[_size++].assign(cell);
    }

    void clear() { _size = 0; }

    [[nodiscard]] std::size_t size() const { return _size; }

    /// To be moved from.
    [[nodiscard]] std::string& operator[](std::size_t index) { return _cells.at(index); }

private:
    std::vector<std::string> _cells; // kept from row to row
    std::size_t _size = 0;
};

/// Where a login has its cells.
struct Columns {
    std::size_t username;
    std::size_t password;
    std::size_t url;
    std::size_t service;
};

void addLogin(NamedRecords& records, Row& row, const Columns& columns) {
    records.logins.push_back({{std::move(row[columns.username]), std::move(row[columns.password]),
                               std::move(row[columns.url])},
                              std::move(row[columns.service])});
}

void addLastPass(NamedRecords& records, Row& row) {
    constexpr Columns columns = {.username = 1, .password = 2, .url = 0, .service = 4};
    if (row[0] == "http://sn") {
        if (!row[3].empty() || !row[4].empty()) {
            records.notes.push_back({std::move(row[4]), std::move(row[3])});
        }
    } else if (!row[0].empty() || !row[1].empty() || !row[2].empty() || !row[4].empty()) {
        addLogin(records, row, columns);
    }
}

void addKeePass(NamedRecords& records, Row& row) {
    addLogin(records, row, {.username = 1, .password = 2, .url = 3, .service = 0});
}

void addKeePassXC(NamedRecords& records, Row& row) {
    addLogin(records, row, {.username = 2, .password = 3, .url = 4, .service = 1});
}

bool isIdentifier(std::string_view text) {
    constexpr std::string_view form = "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";
    if (text.size() < form.size()) {
        return false;
    }
    for (std::size_t index = 0; index < form.size(); ++index) {
        const bool fits = form[index] == 'X'
                              ? std::isxdigit(static_cast<unsigned char>(text[index])) != 0
                              : text[index] == form[index];
        if (!fits) {
            return false;
        }
    }
    return true;
}

bool hasIdentifier(std::string_view text) {
    for (std::size_t brace = text.find('{'); brace != std::string_view::npos;
         brace = text.find('{', brace + 1)) {
        if (isIdentifier(text.substr(brace))) {
            return true;
        }
    }
    return false;
}

void addDashlane(NamedRecords& records, Row& row) {
    if (row.size() < 5) {
        return;
    }
    for (std::size_t cell = 0; cell < row.size(); ++cell) {
        if (hasIdentifier(row[cell])) {
            return;
        }
    }
    addLogin(records, row, {.username = 2, .password = row.size() - 2, .url = 1, .service = 0});
}

using Adding = void (*)(NamedRecords& records, Row& row);

Adding addingOf(ImportSource source) {
    switch (source) {
    case ImportSource::dashlane:
        return addDashlane;
    case ImportSource::lastPass:
        return addLastPass;
    case ImportSource::keePass:
        return addKeePass;
    default:
        return addKeePassXC;
    }
}

struct Reader {
    Adding add;
    bool isHeader; // the next row
    Row row = {};
    NamedRecords records = {};
};

extern "C" {

void endOfCell(void* text, std::size_t size, void* reader) {
    static_cast<Reader*>(reader)->row.add({static_cast<const char*>(text), size});
}

void endOfRow(int /*character*/, void* object) {
    Reader& reader = *static_cast<Reader*>(object);
    if (!reader.isHeader) {
        reader.add(reader.records, reader.row);
    }
    reader.isHeader = false;
    reader.row.clear();
}

int noBlank(unsigned char /*character*/) {
    return 0; // otherwise it would trim cells
}
}

NamedRecords read(const std::filesystem::path& file, Reader reader) {
    ::csv_parser parser{};
    if (::csv_init(&parser, 0) != 0) {
        throw std::runtime_error("no parser");
    }
    ::csv_set_space_func(&parser, noBlank);
    std::ifstream stream(file, std::ios::binary);
    std::array<char, 65536> piece{};
    while (stream) {
        stream.read(piece.data(), piece.size());
        const auto size = static_cast<std::size_t>(stream.gcount());
        if (::csv_parse(&parser, piece.data(), size, endOfCell, endOfRow, &reader) != size) {
            throw std::runtime_error("the file cannot be parsed");
        }
    }
    ::csv_fini(&parser, endOfCell, endOfRow, &reader);
    ::csv_free(&parser);
    return std::move(reader.records);
}

} // namespace

void addLibCSV(const Store& store, std::vector<Contestant>& peers) {
    if (store.format != StoreFormat::csv) {
        return;
    }
    const Reader reader{.add = addingOf(store.source),
                        .isHeader = store.source != ImportSource::dashlane};
    peers.push_back(contestant("libcsv", [=] { return read(store.file, reader); }));
}

} // namespace Rellinor::Benchmarks
