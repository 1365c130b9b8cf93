#include "Benchmarks/DashlaneGenerator.hpp"

#include <string_view>

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

enum class Commas : std::uint8_t { none, quoted };

void writeLogin(InventedText& out, Commas commas) {
    out.text(commas == Commas::quoted ? "\"" : "");
    out.word();
    out.text(commas == Commas::quoted ? ", " : " ");
    out.word();
    out.text(commas == Commas::quoted ? "\"," : ",");
    out.address();
    out.text(",");
    out.account();
    out.text(",,");
    out.secret();
    out.text(commas == Commas::quoted ? ",\"opened in spring, moved in autumn\"\n" : ",\n");
}

void writeIdentifier(InventedText& out) {
    constexpr std::string_view form = "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char character : form) {
        out.text(character == 'X' ? digits.substr(out.below(digits.size()), 1)
                                  : std::string_view(&character, 1));
    }
}

void writeOther(InventedText& out) {
    out.word();
    out.text(",");
    out.word();
    out.text(" grüner,2021-04-01,");
    writeIdentifier(out);
    out.text(",");
    out.number();
    out.text(",\n");
}

void writeShortRow(InventedText& out) {
    out.word();
    out.text(",\"");
    out.word();
    out.text(", ");
    out.word();
    out.text("\"\n");
}

} // namespace

std::string dashlaneExport(std::size_t rows, std::uint64_t seed) {
    InventedText out(seed);
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t kind = out.below(100);
        if (kind < 5) {
            writeOther(out);
        } else if (kind < 10) {
            writeShortRow(out);
        } else {
            writeLogin(out, kind < 20 ? Commas::quoted : Commas::none);
        }
    }
    return out.take();
}

} // namespace Rellinor::Benchmarks
