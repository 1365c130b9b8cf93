#pragma once

#include <cstdint>
#include <string_view>

#include <Rellinor/Models/ImportedCardInfoProviding.hpp>

namespace Rellinor {

/// A payment card, as an importer builds it. Its texts belong to the import's memory.
class ImportedCard final : public ImportedCardInfoProviding {
public:
    ImportedCard(std::string_view cardNumber, std::string_view custName,
                 std::string_view holderName, std::string_view cvv, std::string_view pin,
                 std::string_view note, std::int64_t expirationDay, std::int64_t expirationMonth,
                 std::int64_t expirationYear) noexcept
        : _cardNumber(cardNumber), _custName(custName), _holderName(holderName), _cvv(cvv),
          _pin(pin), _note(note), _expirationDay(expirationDay), _expirationMonth(expirationMonth),
          _expirationYear(expirationYear) {}

    [[nodiscard]] std::string_view cardNumber() const noexcept override { return _cardNumber; }

    [[nodiscard]] std::string_view custName() const noexcept override { return _custName; }

    [[nodiscard]] std::string_view holderName() const noexcept override { return _holderName; }

    [[nodiscard]] std::string_view cvv() const noexcept override { return _cvv; }

    [[nodiscard]] std::string_view pin() const noexcept override { return _pin; }

    [[nodiscard]] std::string_view note() const noexcept override { return _note; }

    [[nodiscard]] std::int64_t expirationDay() const noexcept override { return _expirationDay; }

    [[nodiscard]] std::int64_t expirationMonth() const noexcept override {
        return _expirationMonth;
    }

    [[nodiscard]] std::int64_t expirationYear() const noexcept override { return _expirationYear; }

private:
    std::string_view _cardNumber;
    std::string_view _custName;
    std::string_view _holderName;
    std::string_view _cvv;
    std::string_view _pin;
    std::string_view _note;
    std::int64_t _expirationDay;
    std::int64_t _expirationMonth;
    std::int64_t _expirationYear;
};

} // namespace Rellinor
