#include "Tests/Reference/DashlaneReference.hpp"

#include "Tests/Reference/CSVReference.hpp"
#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::u16string_view digits = u"0123456789abcdefABCDEF";

/// The identifier, with an X for each of its hexadecimal digits.
constexpr std::u16string_view form = u"{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";

bool isIdentifier(std::u16string_view text) {
    if (text.size() != form.size()) {
        return false;
    }
    for (std::size_t index = 0; index < form.size(); ++index) {
        const bool fits =
            form[index] == u'X' ? digits.contains(text[index]) : text[index] == form[index];
        if (!fits) {
            return false;
        }
    }
    return true;
}

} // namespace

std::u16string inUTF16(std::string_view text) {
    return referenceUTF16(referenceCodePoints(text).value());
}

std::size_t identifiersIn(const std::u16string& text, std::size_t window) {
    const std::u16string searched = text.substr(0, window);
    std::size_t count = 0;
    for (std::size_t index = 0; index < searched.size();) {
        const bool found = isIdentifier(std::u16string_view(searched).substr(index, form.size()));
        count += found ? 1 : 0;
        index += found ? form.size() : 1;
    }
    return count;
}

Outcome referenceDashlaneImport(std::string_view text) {
    Outcome outcome;
    for (const Row& row : referenceRows(text)) {
        if (row.size() <= 4) {
            continue;
        }
        std::string joined;
        for (const std::string& cell : row) {
            joined += cell;
        }
        const std::size_t window = referenceNumberOfCharacters(referenceCodePoints(joined).value());
        if (identifiersIn(inUTF16(joined), window) == 0) {
            outcome.passwords.push_back({.username = row[2],
                                         .password = row[row.size() - 2],
                                         .url = row[1],
                                         .service = row[0]});
        }
    }
    return outcome;
}

} // namespace Rellinor::Tests
