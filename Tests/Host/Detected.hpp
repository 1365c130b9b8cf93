#pragma once

#include <string>
#include <string_view>

#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

/// What is said of the file or folder at a path.
[[nodiscard]] inline std::string detectedAt(const std::string& path) {
    return described(detect(path));
}

/// What is said of a file of these contents.
[[nodiscard]] inline std::string detected(std::string_view contents) {
    const Tests::TemporaryFolder folder;
    return detectedAt(folder.file("file", contents));
}

} // namespace Rellinor::Host
