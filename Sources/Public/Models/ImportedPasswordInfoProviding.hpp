#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// A login, read only.
///
/// Every text is UTF-8, untrimmed, and stays valid as long as a shared pointer to the record
/// exists. It may contain NUL, so it is not a C string.
class RELLINOR_PUBLIC ImportedPasswordInfoProviding {
public:
    /// For implementations alone: a host keeps a record by its shared pointer.
    ImportedPasswordInfoProviding(const ImportedPasswordInfoProviding&) = default;
    /// For implementations alone.
    ImportedPasswordInfoProviding& operator=(const ImportedPasswordInfoProviding&) = default;
    virtual ~ImportedPasswordInfoProviding() = default;

    /// Login name; empty where the source has none, encrypted in that of Firefox.
    [[nodiscard]] virtual std::string_view username() const noexcept = 0;
    /// Password; empty where the source has none. That of a browser is still encrypted: as Firefox
    /// stores it, and for Chrome the Base64 text of the stored bytes.
    [[nodiscard]] virtual std::string_view password() const noexcept = 0;
    /// Address of the site or service; empty where the source has none.
    [[nodiscard]] virtual std::string_view url() const noexcept = 0;
    /// Name or title of the entry; absent where the source has none.
    [[nodiscard]] virtual std::optional<std::string_view> service() const noexcept = 0;
    /// Colour code of the entry, in the source's own palette; absent where the source has none.
    [[nodiscard]] virtual std::optional<std::int64_t> color() const noexcept = 0;
    /// Free text attached to the login; absent where it is not imported.
    [[nodiscard]] virtual std::optional<std::string_view> note() const noexcept = 0;
    /// Time of the last password change, in the source's own unit; absent where the source has
    /// none.
    [[nodiscard]] virtual std::optional<std::int64_t> pwdChange() const noexcept = 0;

protected:
    ImportedPasswordInfoProviding() = default;
};

} // namespace Rellinor
