#pragma once

#include <exception>
#include <string>
#include <utility>

namespace Rellinor {

/// A plain message text, thrown as an error.
class TextError final : public std::exception {
public:
    explicit TextError(std::string text) noexcept : _text(std::move(text)) {}

    /// The message text.
    [[nodiscard]] const char* what() const noexcept override { return _text.c_str(); }

private:
    std::string _text;
};

} // namespace Rellinor
