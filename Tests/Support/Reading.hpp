#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
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

/// An extra as its kind, its label and its value.
using ExtraTexts = std::tuple<ExtraKind, std::string, std::string>;

[[nodiscard]] std::vector<ExtraTexts> copyOf(std::span<const Extra> extras);

/// What is told of so many records: a code, a field and how many places there are.
template <typename Code>
using Told = std::vector<std::tuple<Code, std::string_view, std::uint64_t>>;

[[nodiscard]] Told<LeftOutReason> leftOutOf(const ImportReport& report);
[[nodiscard]] Told<FindingKind> findingsOf(const ImportReport& report);

/// Reads a file or folder as a layout.
[[nodiscard]] ImportedExport readAs(Layout layout, std::string_view path);

/// Whether each raw record arrived or is told to be left out.
[[nodiscard]] bool accountsForAll(const ImportedExport& read);

} // namespace Rellinor::Tests
