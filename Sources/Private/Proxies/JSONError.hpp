#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "Private/Errors/ThrownError.hpp"

namespace Rellinor {

/// A member of a JSON object is not there, or is of another type than was asked for.
class JSONError final : public LibraryError {
public:
    /// In the order of their codes.
    enum class Case : std::uint8_t {
        valueNotFound,
        invalidValueCast,
    };

    [[nodiscard]] static JSONError valueNotFound(std::string_view forKey) {
        return {Case::valueNotFound, forKey, {}};
    }

    [[nodiscard]] static JSONError invalidValueCast(std::string_view forKey,
                                                    std::string_view type) {
        return {Case::invalidValueCast, forKey, type};
    }

    [[nodiscard]] Case which() const noexcept { return _case; }

    /// The key that was asked for.
    [[nodiscard]] std::string_view forKey() const noexcept { return _forKey; }

    /// The name of the type that was asked for; empty if there was no value.
    [[nodiscard]] std::string_view type() const noexcept { return _type; }

    [[nodiscard]] std::string_view domain() const noexcept override { return "Rellinor.JSONError"; }

    [[nodiscard]] std::int64_t code() const noexcept override { return std::to_underlying(_case); }

    [[nodiscard]] ReadFailure failure() const noexcept override {
        return {.reason = FailureReason::wrongShape, .position = {}};
    }

private:
    JSONError(Case which, std::string_view forKey, std::string_view type)
        : _case(which), _forKey(forKey), _type(type) {}

    Case _case;
    std::string _forKey;
    std::string _type;
};

} // namespace Rellinor
