#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "Private/Errors/ThrownError.hpp"

namespace Rellinor {

/// A faithful reading fails as a whole; the code is the number of the reason.
class ReadError final : public LibraryError {
public:
    explicit ReadError(ReadFailure failure) noexcept : _failure(failure) {}

    explicit ReadError(FailureReason reason) noexcept
        : _failure{.reason = reason, .position = {}} {}

    [[nodiscard]] ReadFailure failure() const noexcept override { return _failure; }

    [[nodiscard]] std::string_view domain() const noexcept override { return "Rellinor.ReadError"; }

    [[nodiscard]] std::int64_t code() const noexcept override {
        return std::to_underlying(_failure.reason);
    }

private:
    ReadFailure _failure;
};

} // namespace Rellinor
