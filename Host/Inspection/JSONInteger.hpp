#pragma once

#include <string_view>

namespace Rellinor::Host {

/// Whether a number of a JSON text is an integer of 64 bits, however it is spelt: 1.0 and 10e-1
/// are, 1.5 and 1e19 are not.
///
/// @param number  by the grammar of JSON
[[nodiscard]] bool isInteger(std::string_view number);

} // namespace Rellinor::Host
