#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/ExportReader.hpp>
#include <Rellinor/NSError.hpp>
#include <Rellinor/rellinor.h>

namespace Rellinor {

/// An error with its texts ended by a zero.
struct ErrorTexts {
    /// @throws std::bad_alloc
    explicit ErrorTexts(const NSError& error)
        : domain(error.domain()), code(error.code()), description(error.localizedDescription()) {}

    std::string domain;
    std::int64_t code;
    std::string description;
};

} // namespace Rellinor

/// What an import gave, through whichever door.
struct rellinor_result {
    Rellinor::ImportedRecords records;
    std::optional<Rellinor::ErrorTexts> failure;
    Rellinor::Extras extras;       ///< empty for an importer
    Rellinor::ImportReport report; ///< the same
};

namespace Rellinor {

/// A result without its outcome. It is made before the import, so that lack of memory can be told
/// of when there is none left.
class NewResult {
public:
    /// @throws std::bad_alloc
    NewResult();

    /// The result for its owner in C. This is empty then.
    [[nodiscard]] rellinor_result* with(ImportedExport outcome) noexcept;

private:
    std::unique_ptr<rellinor_result> _result;
    ErrorTexts _outOfMemory;
};

/// Whether the number is that of a source.
[[nodiscard]] constexpr bool isSource(rellinor_source source) noexcept {
    return source >= RELLINOR_SOURCE_CHROME && source <= RELLINOR_SOURCE_FIREFOX;
}

/// The error for a number that is no source.
inline constexpr NSError unavailableSource = {"Rellinor.UnavailableSourceError", 1};

/// The layout of a number; one that is no layout if the number is none.
[[nodiscard]] constexpr Layout layoutOf(rellinor_layout layout) noexcept {
    return std::in_range<std::uint16_t>(std::int32_t{layout}) ? static_cast<Layout>(layout)
                                                              : Layout{};
}

/// The number of a layout.
[[nodiscard]] constexpr rellinor_layout numberOf(std::optional<Layout> layout) noexcept {
    return layout ? static_cast<rellinor_layout>(*layout) : RELLINOR_LAYOUT_NONE;
}

/// A text that is there.
[[nodiscard]] inline rellinor_text asC(std::string_view text) noexcept {
    return {.data = text.data() == nullptr ? "" : text.data(), .length = text.size()};
}

/// A text that may be absent.
[[nodiscard]] inline rellinor_text asC(std::optional<std::string_view> text) noexcept {
    return text ? asC(*text) : rellinor_text{};
}

} // namespace Rellinor
