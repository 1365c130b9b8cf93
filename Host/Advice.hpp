#pragma once

#include <string>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Host {

/// In one line, what somebody who imported a file should know of it, without any of its contents;
/// empty if there is nothing.
///
/// @param result  what importing the file at `path` as `source` gave
[[nodiscard]] std::string advice(const std::string& path, ImportSource source,
                                 const RecordsResult& result);

} // namespace Rellinor::Host
