#include "Host/SummaryFormat.hpp"

#include <cstddef>
#include <ostream>
#include <string>

#include "Host/DisplayText.hpp"

namespace Rellinor::Host {

namespace {

std::string counted(std::size_t count, std::string_view noun) {
    std::string text = std::to_string(count);
    text += ' ';
    text += noun;
    if (count != 1) {
        text += 's';
    }
    return text;
}

} // namespace

void SummaryFormat::write(std::string_view path, const ImportedRecords& records,
                          std::ostream& out) {
    out << displayText(path) << ": " << counted(records.passwords.size(), "password") << ", "
        << counted(records.notes.size(), "note") << ", " << counted(records.cards.size(), "card")
        << '\n';
}

} // namespace Rellinor::Host
