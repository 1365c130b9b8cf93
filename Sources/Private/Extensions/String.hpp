#pragma once

#include <stdexcept>

namespace Rellinor {

/// A plain message text, thrown as an error; `what()` is the text.
class TextError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace Rellinor
