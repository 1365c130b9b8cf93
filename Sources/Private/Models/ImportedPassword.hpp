#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <Rellinor/Models/ImportedPasswordInfoProviding.hpp>

namespace Rellinor {

/// A login, as an importer builds it. Its texts belong to the import's memory.
class ImportedPassword final : public ImportedPasswordInfoProviding {
public:
    ImportedPassword(std::string_view username, std::string_view password, std::string_view url,
                     std::optional<std::string_view> service, std::optional<std::int64_t> color,
                     std::optional<std::string_view> note,
                     std::optional<std::int64_t> pwdChange) noexcept
        : _username(username), _password(password), _url(url), _service(service), _color(color),
          _note(note), _pwdChange(pwdChange) {}

    [[nodiscard]] std::string_view username() const noexcept override { return _username; }

    [[nodiscard]] std::string_view password() const noexcept override { return _password; }

    [[nodiscard]] std::string_view url() const noexcept override { return _url; }

    [[nodiscard]] std::optional<std::string_view> service() const noexcept override {
        return _service;
    }

    [[nodiscard]] std::optional<std::int64_t> color() const noexcept override { return _color; }

    [[nodiscard]] std::optional<std::string_view> note() const noexcept override { return _note; }

    [[nodiscard]] std::optional<std::int64_t> pwdChange() const noexcept override {
        return _pwdChange;
    }

private:
    std::string_view _username;
    std::string_view _password;
    std::string_view _url;
    std::optional<std::string_view> _service;
    std::optional<std::int64_t> _color;
    std::optional<std::string_view> _note;
    std::optional<std::int64_t> _pwdChange;
};

} // namespace Rellinor
