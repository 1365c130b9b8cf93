#include "Private/Models/SmallPassword.hpp"

#include <algorithm>
#include <bit>
#include <limits>

namespace Rellinor {

namespace {

std::uintptr_t addressOf(std::string_view text) noexcept {
    return std::bit_cast<std::uintptr_t>(text.data());
}

} // namespace

std::optional<SmallPassword> SmallPassword::of(const ImportedPassword& password) noexcept {
    if (password.color() || password.pwdChange()) {
        return std::nullopt;
    }
    const Texts texts = {password.username(), password.password(), password.url(),
                         password.service(), password.note()};
    constexpr std::string_view somewhere = "any";
    std::string_view first = somewhere.substr(0, 0); // not without data
    for (const auto& text : texts) {
        if (text && !text->empty() && (first.empty() || addressOf(*text) < addressOf(first))) {
            first = *text;
        }
    }
    const bool fits = std::ranges::all_of(texts, [&](const auto& text) {
        return !text || text->empty() ||
               (text->size() <= longestText &&
                addressOf(*text) - addressOf(first) <= std::numeric_limits<std::uint8_t>::max());
    });
    return fits ? std::optional(SmallPassword(texts, first)) : std::nullopt;
}

SmallPassword::SmallPassword(const Texts& texts, std::string_view first) noexcept
    : StoredPassword(true), _first(first.data()) {
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const auto& text = texts[index];
        if (!text) {
            _places[index] = 1;
        } else if (!text->empty()) {
            _places[index] = static_cast<std::uint8_t>(text->data() - first.data());
            _sizes = static_cast<std::uint16_t>(_sizes | (text->size() << (bitsOfSize * index)));
        }
    }
}

} // namespace Rellinor
