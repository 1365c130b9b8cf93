#include "Host/SummaryFormat.hpp"

#include <ostream>

#include "Host/Counted.hpp"
#include "Host/DisplayText.hpp"

namespace Rellinor::Host {

void SummaryFormat::write(std::string_view path, const ImportedExport& imported,
                          const Masking& /*masking*/, std::ostream& out) {
    const ImportedRecords& records = *imported.records;
    out << displayText(path) << ": " << counted(records.passwords.size(), "password") << ", "
        << counted(records.notes.size(), "note") << ", " << counted(records.cards.size(), "card")
        << '\n';
}

} // namespace Rellinor::Host
