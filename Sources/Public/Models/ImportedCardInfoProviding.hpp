#pragma once

#include <cstdint>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// A payment card, read only.
///
/// Every text is UTF-8, untrimmed, and stays valid as long as a shared pointer to the record
/// exists. It may contain NUL, so it is not a C string.
class RELLINOR_PUBLIC ImportedCardInfoProviding {
public:
    /// For implementations alone: a host keeps a record by its shared pointer.
    ImportedCardInfoProviding(const ImportedCardInfoProviding&) = default;
    /// For implementations alone.
    ImportedCardInfoProviding& operator=(const ImportedCardInfoProviding&) = default;
    virtual ~ImportedCardInfoProviding() = default;

    /// Card number, unchecked.
    [[nodiscard]] virtual std::string_view cardNumber() const noexcept = 0;
    /// Name given to the card entry.
    [[nodiscard]] virtual std::string_view custName() const noexcept = 0;
    /// Card holder's name.
    [[nodiscard]] virtual std::string_view holderName() const noexcept = 0;
    /// Card security code.
    [[nodiscard]] virtual std::string_view cvv() const noexcept = 0;
    /// PIN.
    [[nodiscard]] virtual std::string_view pin() const noexcept = 0;
    /// Free text attached to the card.
    [[nodiscard]] virtual std::string_view note() const noexcept = 0;
    /// Day of expiry, as the source holds it, unchecked.
    [[nodiscard]] virtual std::int64_t expirationDay() const noexcept = 0;
    /// Month of expiry, as the source holds it, unchecked.
    [[nodiscard]] virtual std::int64_t expirationMonth() const noexcept = 0;
    /// Year of expiry, as the source holds it, unchecked.
    [[nodiscard]] virtual std::int64_t expirationYear() const noexcept = 0;

protected:
    ImportedCardInfoProviding() = default;
};

} // namespace Rellinor
