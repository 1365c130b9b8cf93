#include "Host/Inspection/CSVInspection.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "Host/Counted.hpp"
#include "Host/FileContents.hpp"
#include "Host/Inspection/EncodingProblem.hpp"
#include "Host/OtherSeparators.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

std::optional<CSVRows> rowsToInspect(const std::string& path, const RecordsResult& result,
                                     Inspection& inspection) {
    std::optional<std::string> contents = contentsOf(path);
    if (!contents) {
        return std::nullopt;
    }
    if (contents->empty()) {
        inspection.wrong.push_back({"the file is empty", {}});
    } else if (auto problem = encodingProblem(*contents)) {
        inspection.wrong.push_back(*std::move(problem));
        if (!result) {
            return std::nullopt;
        }
    } else if (hasCarriageReturnsOnly(*contents)) {
        inspection.wrong.push_back({"the lines end with carriage returns alone, so that they are "
                                    "read as one: save the file with line feeds",
                                    {}});
        if (!result) {
            return std::nullopt;
        }
    }
    return CSVRows(*std::move(contents));
}

void reportBlank(Inspection& inspection) {
    if (inspection.wrong.empty()) {
        inspection.wrong.push_back({"the file has nothing but blank lines", {}});
    }
}

std::string otherSeparator(const CSVRow& row, std::size_t fewest) {
    if (row.numberOfCells > 1) {
        return {};
    }
    for (const auto& [separator, name] : otherSeparators) {
        if (static_cast<std::size_t>(std::ranges::count(row.text, separator)) + 1 >= fewest) {
            return "the columns are separated by " + std::string(name) +
                   ", but only commas are read: export with commas";
        }
    }
    return {};
}

void addIfAnywhere(std::vector<Remark>& remarks, Remark remark) {
    if (!remark.places.empty()) {
        remarks.push_back(std::move(remark));
    }
}

void addOnce(Remark& remark, std::size_t place) {
    if (remark.places.empty() || remark.places.back() != place) {
        remark.places.push_back(place);
    }
}

void FilledCells::report(Inspection& inspection) const {
    if (_count > 0) {
        inspection.notImported.push_back({_what + ": filled in " + counted(_count, "row"), {}});
    }
}

} // namespace Rellinor::Host
