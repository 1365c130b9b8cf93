#pragma once

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// One JSON object on one line for each path: its records with all their fields under their own
/// names, absent values as null, or the error's domain and code. Through the second door also the
/// layout, what each record holds besides, and the report, or the reason of a failure.
class JSONFormat final : public RecordsFormat {
public:
    explicit JSONFormat(Door door) noexcept : _door(door) {}

    void write(std::string_view path, const ImportedExport& imported, const Masking& masking,
               std::ostream& out) override;
    void writeFailure(const ImportedExport& failed, std::ostream& out) override;

private:
    Door _door;
};

} // namespace Rellinor::Host
