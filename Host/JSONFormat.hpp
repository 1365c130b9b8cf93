#pragma once

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// One JSON object on one line for each path: its records with all their fields under their own
/// names, absent values as null, or the error's domain and code.
class JSONFormat final : public RecordsFormat {
public:
    explicit JSONFormat(Secrets secrets) noexcept : _secrets(secrets) {}

    void write(std::string_view path, const ImportedRecords& records, std::ostream& out) override;
    void writeFailure(const NSError& error, std::ostream& out) override;

private:
    Secrets _secrets;
};

} // namespace Rellinor::Host
