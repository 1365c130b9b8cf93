#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

#include "Private/Memory/ImportMemory.hpp"

namespace Rellinor {

/// Texts one behind the other, in the memory of an import.
///
/// @throws std::bad_alloc
[[nodiscard]] inline std::string_view joined(std::span<const std::string_view> parts,
                                             ImportMemory& memory) {
    std::size_t size = 0;
    for (const std::string_view part : parts) {
        size += part.size();
    }
    const std::span<char> text = memory.allocate(size);
    auto next = text.begin();
    for (const std::string_view part : parts) {
        next = std::ranges::copy(part, next).out;
    }
    return {text.data(), text.size()};
}

[[nodiscard]] inline std::string_view joined(std::initializer_list<std::string_view> parts,
                                             ImportMemory& memory) {
    return joined(std::span(parts.begin(), parts.size()), memory);
}

} // namespace Rellinor
