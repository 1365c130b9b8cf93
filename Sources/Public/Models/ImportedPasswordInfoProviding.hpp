#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// A login, read only.
///
/// Every text is UTF-8, exactly as the source holds it, and stays valid as long as a shared pointer
/// to the record exists. A text may contain NUL, so it is not a C string.
class RELLINOR_PUBLIC ImportedPasswordInfoProviding {
public:
    ImportedPasswordInfoProviding(const ImportedPasswordInfoProviding&) = default;
    ImportedPasswordInfoProviding& operator=(const ImportedPasswordInfoProviding&) = default;
    virtual ~ImportedPasswordInfoProviding() = default;

    /// Login name; empty where the source has none.
    [[nodiscard]] virtual std::string_view username() const noexcept = 0;
    /// Password; empty where the source has none.
    [[nodiscard]] virtual std::string_view password() const noexcept = 0;
    /// Address of the site or service; empty where the source has none.
    [[nodiscard]] virtual std::string_view url() const noexcept = 0;
    /// Name or title of the entry.
    [[nodiscard]] virtual std::optional<std::string_view> service() const noexcept = 0;
    /// Colour code of the entry, in the source's own palette.
    [[nodiscard]] virtual std::optional<std::int64_t> color() const noexcept = 0;
    /// Free text attached to the login.
    [[nodiscard]] virtual std::optional<std::string_view> note() const noexcept = 0;
    /// Time of the last password change, in the source's own unit.
    [[nodiscard]] virtual std::optional<std::int64_t> pwdChange() const noexcept = 0;

protected:
    ImportedPasswordInfoProviding() = default;
};

} // namespace Rellinor
