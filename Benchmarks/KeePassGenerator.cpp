#include "Benchmarks/KeePassGenerator.hpp"

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

constexpr std::string_view betweenCells = R"(",")";

void writeTitle(InventedText& out) {
    out.word();
    out.text(", ");
    out.word();
}

void writeNotes(InventedText& out) {
    if (out.below(10) != 0) {
        return;
    }
    for (std::size_t line = 0, lines = 2 + out.below(4); line < lines; ++line) {
        out.word();
        out.text(": ");
        out.secret();
        out.text(", ");
        out.word();
        out.text("\n");
    }
}

/// Every cell behind the title.
void writeRest(InventedText& out) {
    out.text(betweenCells);
    out.account();
    out.text(betweenCells);
    out.secret();
    out.text(betweenCells);
    out.address();
    out.text(betweenCells);
    writeNotes(out);
    out.text("\"\n");
}

} // namespace

std::string keePassXCExport(std::size_t rows, std::uint64_t seed) {
    InventedText out(seed);
    out.text(R"("Group","Title","Username","Password","URL","Notes")"
             "\n");
    for (std::size_t row = 0; row < rows; ++row) {
        out.text("\"Root/");
        out.word();
        out.text(betweenCells);
        writeTitle(out);
        writeRest(out);
    }
    return out.take();
}

std::string keePassExport(std::size_t rows, std::uint64_t seed) {
    InventedText out(seed);
    out.text(R"("Account","Login Name","Password","Web Site","Comments")"
             "\n");
    for (std::size_t row = 0; row < rows; ++row) {
        out.text("\"");
        writeTitle(out);
        writeRest(out);
    }
    return out.take();
}

} // namespace Rellinor::Benchmarks
