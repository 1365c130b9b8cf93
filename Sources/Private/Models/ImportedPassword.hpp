#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Private/Models/StoredPassword.hpp"

namespace Rellinor {

/// A login, as an importer builds it. Its texts belong to the import's memory.
class ImportedPassword final : public StoredPassword {
public:
    ImportedPassword(std::string_view username, std::string_view password, std::string_view url,
                     std::optional<std::string_view> service = std::nullopt,
                     std::optional<std::int64_t> color = std::nullopt,
                     std::optional<std::string_view> note = std::nullopt,
                     std::optional<std::int64_t> pwdChange = std::nullopt) noexcept
        : StoredPassword(false), _hasColor(color.has_value()), _hasPwdChange(pwdChange.has_value()),
          _username(username), _password(password), _url(url), _service(packed(service)),
          _note(packed(note)), _color(color.value_or(0)), _pwdChange(pwdChange.value_or(0)) {}

    [[nodiscard]] std::string_view username() const noexcept override { return _username; }

    [[nodiscard]] std::string_view password() const noexcept override { return _password; }

    [[nodiscard]] std::string_view url() const noexcept override { return _url; }

    [[nodiscard]] std::optional<std::string_view> service() const noexcept override {
        return unpacked(_service);
    }

    [[nodiscard]] std::optional<std::int64_t> color() const noexcept override {
        return _hasColor ? std::optional(_color) : std::nullopt;
    }

    [[nodiscard]] std::optional<std::string_view> note() const noexcept override {
        return unpacked(_note);
    }

    [[nodiscard]] std::optional<std::int64_t> pwdChange() const noexcept override {
        return _hasPwdChange ? std::optional(_pwdChange) : std::nullopt;
    }

private:
    // An absent text is a view without data: the fewer bytes a record takes, of which there may be
    // very many, the faster it is built.

    static std::string_view packed(std::optional<std::string_view> text) noexcept {
        return text && text->data() == nullptr ? "" : text.value_or(std::string_view());
    }

    static std::optional<std::string_view> unpacked(std::string_view text) noexcept {
        return text.data() == nullptr ? std::nullopt : std::optional(text);
    }

    bool _hasColor;
    bool _hasPwdChange;
    std::string_view _username;
    std::string_view _password;
    std::string_view _url;
    std::string_view _service;
    std::string_view _note;
    std::int64_t _color;
    std::int64_t _pwdChange;
};

} // namespace Rellinor
