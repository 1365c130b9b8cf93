#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Private/Models/ImportedPassword.hpp"

namespace Rellinor {

/// A login of short texts that stand near each other, in less than a quarter of the memory of an
/// `ImportedPassword`: a file of nothing but such logins may hold one in every two bytes.
class SmallPassword final : public StoredPassword {
public:
    /// Whether its longest texts let a login be small. Quick: most logins of a file do not.
    [[nodiscard]] static bool mayHold(const ImportedPassword& password) noexcept {
        return password.url().size() <= longestText && password.username().size() <= longestText &&
               password.password().size() <= longestText;
    }

    /// The same login; absent if there is no room for all that it has.
    [[nodiscard]] static std::optional<SmallPassword> of(const ImportedPassword& password) noexcept;

    [[nodiscard]] std::string_view username() const noexcept override { return text(0); }

    [[nodiscard]] std::string_view password() const noexcept override { return text(1); }

    [[nodiscard]] std::string_view url() const noexcept override { return text(2); }

    [[nodiscard]] std::optional<std::string_view> service() const noexcept override {
        return textIfAny(3);
    }

    [[nodiscard]] std::optional<std::int64_t> color() const noexcept override {
        return std::nullopt;
    }

    [[nodiscard]] std::optional<std::string_view> note() const noexcept override {
        return textIfAny(4);
    }

    [[nodiscard]] std::optional<std::int64_t> pwdChange() const noexcept override {
        return std::nullopt;
    }

private:
    static constexpr unsigned bitsOfSize = 3;
    static constexpr std::size_t longestText = (1U << bitsOfSize) - 1;

    // User name, password, URL, service and note.
    using Texts = std::array<std::optional<std::string_view>, 5>;

    SmallPassword(const Texts& texts, std::string_view first) noexcept;

    [[nodiscard]] std::string_view text(std::size_t index) const noexcept {
        return {_first + _places[index], (_sizes >> (bitsOfSize * index)) & longestText};
    }

    [[nodiscard]] std::optional<std::string_view> textIfAny(std::size_t index) const noexcept {
        const std::string_view found = text(index);
        return found.empty() && _places[index] != 0 ? std::nullopt : std::optional(found);
    }

    // These stand in what the base leaves of eight bytes.
    std::array<std::uint8_t, 5> _places = {}; // behind the first text; 1 for one that is absent
    std::uint16_t _sizes = 0;                 // from the lowest bits on
    const char* _first;
};

static_assert(sizeof(SmallPassword) == 3 * sizeof(void*));

} // namespace Rellinor
