#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "Private/Errors/ThrownError.hpp"

namespace Rellinor {

/// A file is not in the 1Password Interchange Format.
class PIFParsingError final : public LibraryError {
public:
    explicit PIFParsingError(std::string description, ReadFailure failure = {})
        : _description(std::move(description)), _failure(failure) {}

    /// The reason, for a person to read.
    [[nodiscard]] std::string_view description() const noexcept { return _description; }

    [[nodiscard]] std::string_view domain() const noexcept override {
        return "Rellinor.PIFParsingError";
    }

    [[nodiscard]] std::int64_t code() const noexcept override { return 1; }

    [[nodiscard]] ReadFailure failure() const noexcept override { return _failure; }

private:
    std::string _description;
    ReadFailure _failure;
};

} // namespace Rellinor
