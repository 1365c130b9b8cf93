#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/ExportReader.hpp>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// What faithful reading makes of a file, copied out so that it can be compared.
struct Reading {
    Outcome records;
    /// For each login, then each note, then each card, a line `kind label=value` for each extra.
    std::vector<std::string> extras;
    ImportReport report;

    [[nodiscard]] std::uint64_t delivered() const;
    [[nodiscard]] std::uint64_t leftOut(LeftOutReason reason) const;
    [[nodiscard]] std::uint64_t found(FindingKind kind, std::string_view field) const;
    [[nodiscard]] std::uint64_t found(FindingKind kind) const;
    [[nodiscard]] std::uint64_t unread(std::string_view part) const;

    /// Every text that has arrived, one behind the other.
    [[nodiscard]] std::string texts() const;
};

/// Reads a text as what it is taken for. Expects every raw record to be accounted for.
[[nodiscard]] Reading readingOf(std::string_view text);

/// Reads a text as a layout.
[[nodiscard]] Reading readingOf(Layout layout, std::string_view text);
[[nodiscard]] Reading readingOf(Layout layout, const ExportFile& file);

} // namespace Rellinor::Tests
