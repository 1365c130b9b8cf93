#include <algorithm>
#include <array>
#include <span>

#include "Private/Detection/CSVBeginning.hpp"
#include "Private/Detection/Recognisers.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

/// The names of the columns of a file.
class Header {
public:
    explicit Header(CSVCells cells) : _asWritten(std::move(cells)) {
        for (const std::string_view cell : _asWritten) {
            if (const std::string_view name = withoutBlanksAround(cell); !name.empty()) {
                _names.push_back(name);
            }
        }
    }

    /// @param name  in lower case
    [[nodiscard]] bool has(std::string_view name) const noexcept {
        return std::ranges::any_of(
            _names, [&](std::string_view other) { return sameIgnoringCase(name, other); });
    }

    [[nodiscard]] bool hasAll(ColumnNames names) const noexcept {
        return std::ranges::all_of(names, [&](std::string_view name) { return has(name); });
    }

    [[nodiscard]] bool hasAny(ColumnNames names) const noexcept {
        return std::ranges::any_of(names, [&](std::string_view name) { return has(name); });
    }

    /// How many of the columns have no name that the layout knows.
    [[nodiscard]] std::size_t numberOfOthers(const CSVLayout& layout) const noexcept {
        const auto isOther = [&](std::string_view name) {
            const auto isSame = [&](std::string_view known) {
                return sameIgnoringCase(known, name);
            };
            return std::ranges::none_of(layout.required, isSame) &&
                   std::ranges::none_of(layout.optional, isSame);
        };
        return static_cast<std::size_t>(std::ranges::count_if(_names, isOther));
    }

    [[nodiscard]] bool hasAddress() const noexcept {
        return std::ranges::any_of(_names,
                                   [](std::string_view name) { return name.contains("://"); });
    }

    [[nodiscard]] std::size_t size() const noexcept { return _names.size(); }

    /// Whether these are the columns, in any order, and no others.
    [[nodiscard]] bool isExactly(ColumnNames names) const noexcept {
        return _asWritten.size() == names.size() &&
               std::ranges::all_of(names, [&](std::string_view name) {
                   return std::ranges::find(_asWritten, name) != _asWritten.end();
               });
    }

private:
    CSVCells _asWritten;
    CSVCells _names; // those that are no blanks, without blanks around them
};

/// How sure a layout is of a header; none if the header is not the layout's.
Confidence confidenceIn(const CSVLayout& layout, const Header& header) noexcept {
    if (!header.hasAll(layout.required)) {
        return Confidence::none;
    }
    if (layout.others == OtherColumns::any) {
        return Confidence::certain;
    }
    const std::size_t others = header.numberOfOthers(layout);
    if (layout.others == OtherColumns::none) {
        return others == 0 ? Confidence::likely : Confidence::none;
    }
    if (others == 0) {
        return Confidence::certain;
    }
    return others * 2 < header.size() ? Confidence::likely : Confidence::none;
}

Detection detection(const CSVLayout& layout, Confidence confidence, const Header& header) noexcept {
    Detection found = recognised(layout.layout, confidence, layout.product, layout.evidence);
    if (layout.source && header.isExactly(layout.exactNames)) {
        found.source = layout.source;
    }
    return found;
}

/// The layout with the most names of those that fit.
std::optional<Detection> detectProduct(const Header& header) noexcept {
    const CSVLayout* best = nullptr;
    Confidence confidence = Confidence::none;
    for (const CSVLayout& layout : csvLayouts()) {
        const Confidence own = confidenceIn(layout, header);
        const std::size_t most = best != nullptr ? best->required.size() : 0;
        if (own == Confidence::none || layout.required.size() < most) {
            continue;
        }
        if (layout.required.size() > most) {
            best = &layout;
            confidence = own;
        } else if (layout.layout != best->layout) {
            confidence = std::min(confidence, Confidence::likely);
        }
    }
    return best != nullptr ? std::optional(detection(*best, confidence, header)) : std::nullopt;
}

std::optional<Detection> detectUsualNames(const Header& header) noexcept {
    using enum UsualColumn;
    const auto names = [&](UsualColumn column) { return header.hasAny(usualNames(column)); };
    // An address is no name: that is a row of a file without a header.
    if (header.hasAddress() || !names(password) ||
        (!names(username) && !names(url) && !names(title))) {
        return std::nullopt;
    }
    return recognised(Layout::genericCSV, Confidence::likely, {},
                      "usual names of columns, the password's among them");
}

using Recogniser = std::optional<Detection> (*)(const Header&) noexcept;

/// The header in front of a text, split by a separator.
std::optional<Detection> detectSplit(Beginning beginning, char separator, Recogniser recognise) {
    CSVBeginning rows(beginning, separator);
    CSVCells cells;
    if (!rows.next(cells)) {
        return std::nullopt;
    }
    auto found = recognise(Header(std::move(cells)));
    if (found && (separator != ',' || rows.hasCarriageReturnsOnly())) {
        found->source.reset(); // the specified imports know commas and line feeds
    }
    return found;
}

std::optional<Detection> detectSplit(Beginning beginning, std::span<const char> separators) {
    for (const Recogniser recognise : {detectProduct, detectUsualNames}) {
        for (const char separator : separators) {
            if (auto found = detectSplit(beginning, separator, recognise)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Detection> detectColumns(Beginning beginning) {
    constexpr std::string_view announcement = "sep="; // in a line of its own, as spreadsheets do
    const std::size_t end = announcement.size() + 1;

    if (beginning.text.size() > end &&
        sameIgnoringCase(beginning.text.substr(0, announcement.size()), announcement) &&
        (beginning.text[end] == '\n' || beginning.text[end] == '\r')) {
        const std::array separators = {beginning.text[end - 1]};
        beginning.text.remove_prefix(end);
        auto found = detectSplit(beginning, separators);
        if (found) {
            found->source.reset();
        }
        return found;
    }
    constexpr std::array<char, 3> separators = {',', ';', '\t'};
    return detectSplit(beginning, separators);
}

} // namespace Rellinor
