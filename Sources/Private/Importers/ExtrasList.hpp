#pragma once

#include <string_view>
#include <vector>

#include <Rellinor/Extras.hpp>

#include "Private/Importers/ExtrasTable.hpp"

namespace Rellinor {

/// The extras of the raw record that is being built. Labels and values are literals or stand in the
/// import's memory.
class ExtrasList {
public:
    /// Adds an extra unless its value is empty.
    ///
    /// @throws std::bad_alloc
    void add(ExtraKind kind, std::string_view label, std::string_view value) {
        if (!value.empty()) {
            _extras.push_back({.kind = kind, .label = label, .value = value});
        }
    }

    /// Moves the extras to where they stay, and begins anew.
    ///
    /// @throws std::bad_alloc
    void keepIn(ExtrasTable& table) {
        table.append(_extras);
        _extras.clear();
    }

private:
    std::vector<Extra> _extras;
};

/// In place of a list for a source that has no extras.
struct NoExtras {};

} // namespace Rellinor
