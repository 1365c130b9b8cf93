#pragma once

#include <string>
#include <string_view>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

/// What the import of a Dashlane export with this text gives, told step by step on top of the
/// reference of the CSV dialect: every row is joined, made UTF-16 and looked at unit by unit.
[[nodiscard]] Outcome referenceDashlaneImport(std::string_view text);

/// How many identifiers in braces lie within the first `window` units of a text.
[[nodiscard]] std::size_t identifiersIn(const std::u16string& text, std::size_t window);

/// A UTF-8 text in UTF-16.
[[nodiscard]] std::u16string inUTF16(std::string_view text);

} // namespace Rellinor::Tests
