#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Host/CSVRows.hpp"
#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// Tells quotes that do not pair up from those of an honest export, in which a cell either has none
/// or stands in quotes as a whole, with those inside it doubled or escaped.
class CSVQuotes {
public:
    /// Looks at the next row; whether its quotes make cells or rows run together.
    bool look(const CSVRow& row);

    void report(Inspection& inspection) const;

private:
    /// Rows that run together for one reason.
    struct Damage {
        std::vector<std::size_t> places;
        std::size_t linesSwallowed = 0;
    };

    void addDamage(const CSVRow& row, std::string_view cell, std::size_t positionOfFault);
    static void report(const Damage& damage, std::string_view one, std::string_view many,
                       Inspection& inspection);

    Damage _open;
    Damage _backslash;
    Remark _outside{"something outside the quotes of a cell: the quotes arrive as part of it", {}};
    Damage* _previous = nullptr; ///< that of the row before
};

} // namespace Rellinor::Host
