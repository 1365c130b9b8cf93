#pragma once

#include <iosfwd>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

#include "Host/Masking.hpp"

namespace Rellinor::Host {

/// A way of showing the outcome of imports, one path after the other.
class RecordsFormat {
public:
    RecordsFormat(const RecordsFormat&) = delete;
    RecordsFormat& operator=(const RecordsFormat&) = delete;
    virtual ~RecordsFormat() = default;

    /// Shows the records that were imported from `path`.
    ///
    /// @param imported  has records
    virtual void write(std::string_view path, const ImportedExport& imported,
                       const Masking& masking, std::ostream& out) = 0;

    /// Takes what was shown, where the format needs it for the end.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who keeps it takes it over
    virtual void keep(ImportedExport /*imported*/) {}

    /// Shows that nothing was imported, where the format has a place for that.
    ///
    /// @param failed  has no records
    virtual void writeFailure(const ImportedExport& /*failed*/, std::ostream& /*out*/) {}

    /// Shows what comes after the last path, where the format has something to say there.
    virtual void finish(std::ostream& /*out*/) {}

protected:
    RecordsFormat() = default;
};

} // namespace Rellinor::Host
