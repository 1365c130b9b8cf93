#include "Benchmarks/LastPassGenerator.hpp"

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

enum class Commas : std::uint8_t { none, quoted };

void writeLogin(InventedText& out, Commas commas) {
    out.address();
    out.text(",");
    out.account();
    out.text(",");
    out.secret();
    out.text(commas == Commas::quoted ? R"(,"opened in spring, moved in autumn",")" : ",,");
    out.word();
    out.text(commas == Commas::quoted ? ", " : " ");
    out.word();
    out.text(commas == Commas::quoted ? "\"," : ",");
    out.word();
    out.text(out.below(4) == 0 ? ",1\n" : ",0\n");
}

void writeNote(InventedText& out) {
    out.text("http://sn,,,\"");
    for (std::size_t line = 0, lines = 2 + out.below(4); line < lines; ++line) {
        out.word();
        out.text(": ");
        out.secret();
        out.text(", ");
        out.word();
        out.text("\n");
    }
    out.text("\",");
    out.word();
    out.text(" note,");
    out.word();
    out.text(",0\n");
}

} // namespace

std::string lastPassExport(std::size_t rows, std::uint64_t seed) {
    InventedText out(seed);
    out.text("url,username,password,extra,name,grouping,fav\n");
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t kind = out.below(100);
        if (kind < 5) {
            writeNote(out);
        } else {
            writeLogin(out, kind < 15 ? Commas::quoted : Commas::none);
        }
    }
    return out.take();
}

} // namespace Rellinor::Benchmarks
