#pragma once

#include <string>

#include <Rellinor/Rellinor.hpp>

#include "Host/Inspection/Inspection.hpp"

// One for each format; parameters and result as those of `inspect`.

namespace Rellinor::Host {

[[nodiscard]] Inspection inspectLastPass(const std::string& path, const RecordsResult& result);
[[nodiscard]] Inspection inspectDashlane(const std::string& path, const RecordsResult& result);
[[nodiscard]] Inspection inspectKeePass(const std::string& path, const RecordsResult& result);
[[nodiscard]] Inspection inspectOnePassword(const std::string& path, const RecordsResult& result);
[[nodiscard]] Inspection inspectTirel(const std::string& path, const RecordsResult& result);
[[nodiscard]] Inspection inspectChrome(const std::string& path, const RecordsResult& result);
[[nodiscard]] Inspection inspectFirefox(const std::string& path, const RecordsResult& result);

} // namespace Rellinor::Host
