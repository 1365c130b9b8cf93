#include "Benchmarks/KeePassGenerator.hpp"

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

void writeLogin(InventedText& out) {
    out.text("\"Root/");
    out.word();
    out.text(R"(",")");
    out.word();
    out.text(", ");
    out.word();
    out.text(R"(",")");
    out.account();
    out.text(R"(",")");
    out.secret();
    out.text(R"(",")");
    out.address();
    out.text(R"(",")");
    if (out.below(10) == 0) {
        for (std::size_t line = 0, lines = 2 + out.below(4); line < lines; ++line) {
            out.word();
            out.text(": ");
            out.secret();
            out.text(", ");
            out.word();
            out.text("\n");
        }
    }
    out.text("\"\n");
}

} // namespace

std::string keePassExport(std::size_t rows, std::uint64_t seed) {
    InventedText out(seed);
    out.text(R"("Group","Title","Username","Password","URL","Notes")"
             "\n");
    for (std::size_t row = 0; row < rows; ++row) {
        writeLogin(out);
    }
    return out.take();
}

} // namespace Rellinor::Benchmarks
