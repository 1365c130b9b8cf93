#include "Host/Inspection/CSVInspection.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "Host/Characters.hpp"
#include "Host/Counted.hpp"
#include "Host/FileContents.hpp"

namespace Rellinor::Host {

namespace {

/// Whether the bytes are text in UTF-16, with or without a mark that says so.
bool isUTF16(std::string_view bytes) noexcept {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.substr(0, 2).contains('\0');
}

/// Whether a carriage return alone parts one line from another, and nothing else does.
bool hasCarriageReturnsOnly(std::string_view text) noexcept {
    return text.find('\r') < text.size() - 1 && !text.contains('\n');
}

std::size_t lineOf(std::size_t position, std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count(text.substr(0, position), '\n')) + 1;
}

} // namespace

std::optional<CSVRows> rowsToInspect(const std::string& path, const RecordsResult& result,
                                     Inspection& inspection) {
    std::optional<std::string> contents = contentsOf(path);
    if (!contents) {
        return std::nullopt;
    }
    if (contents->empty()) {
        inspection.wrong.push_back({"the file is empty", {}});
    } else if (isUTF16(*contents)) {
        inspection.wrong.push_back({"the text is in UTF-16: save the file as UTF-8", {}});
        if (!result) {
            return std::nullopt;
        }
    } else if (hasCarriageReturnsOnly(*contents)) {
        inspection.wrong.push_back({"the lines end with carriage returns alone, so that they are "
                                    "read as one: save the file with line feeds",
                                    {}});
    }
    if (!result) {
        if (const auto broken = firstBrokenByte(*contents)) {
            inspection.wrong.push_back(
                {"the text is not UTF-8: save the file as UTF-8", {lineOf(*broken, *contents)}});
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
    using Separator = std::pair<char, std::string_view>;
    for (const auto& [separator, name] : {Separator{';', "semicolons"}, {'\t', "tabs"}}) {
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
