#pragma once

#include "Host/ExportFormat.hpp"

namespace Rellinor::Host {

/// One Tirel export, on one line. What a Tirel record has no place for stands at the end of its
/// note, one `label: value` a line.
class TirelFormat final : public ExportFormat {
public:
    void finish(std::ostream& out) override;
};

} // namespace Rellinor::Host
