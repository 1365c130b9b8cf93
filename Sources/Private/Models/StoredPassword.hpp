#pragma once

#include <Rellinor/Models/ImportedPasswordInfoProviding.hpp>

namespace Rellinor {

/// A login in a `PasswordList`, which holds them in two sizes.
class StoredPassword : public ImportedPasswordInfoProviding {
public:
    /// Whether it is a `SmallPassword`; an `ImportedPassword` if not.
    [[nodiscard]] bool isSmall() const noexcept { return _isSmall; }

protected:
    explicit StoredPassword(bool isSmall) noexcept : _isSmall(isSmall) {}

private:
    bool _isSmall;
};

} // namespace Rellinor
