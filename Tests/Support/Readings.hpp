#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <Rellinor/ExportReader.hpp>

namespace Rellinor::Tests {

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
