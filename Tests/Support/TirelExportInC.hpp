#pragma once

#include <memory>

#include <Rellinor/rellinor.h>

namespace Rellinor::Tests {

/// A Tirel export as a host in C writes it.
using TirelExportInC =
    std::unique_ptr<rellinor_tirel_export, decltype(&rellinor_tirel_export_free)>;

/// Everything that a result has but its extras, as a host in C writes it. An absent colour becomes
/// 0.
[[nodiscard]] TirelExportInC tirelExportOf(const rellinor_result& result);

} // namespace Rellinor::Tests
