#include "Benchmarks/TirelGenerator.hpp"

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

void writeLogin(InventedText& out) {
    out.text(R"({"color":3,"custName":")");
    out.word();
    out.text(" ");
    out.word();
    out.text(R"(","loginName":")");
    out.account();
    out.text(R"(","note":")");
    out.text(out.below(10) == 0 ? "opened in spring,\\nmoved in autumn" : "");
    out.text(R"(","pwd":")");
    out.word();
    out.number();
    out.word();
    out.text(R"(","pwdChange":16)");
    out.number();
    out.text(R"(,"url":")");
    out.address();
    out.text(R"("})");
}

void writeNote(InventedText& out) {
    out.text(R"({"color":1,"label":")");
    out.word();
    out.text(R"(","text":")");
    for (std::size_t line = 0, lines = 2 + out.below(4); line < lines; ++line) {
        out.word();
        out.text(": ");
        out.number();
        out.text("\\n");
    }
    out.text(R"("})");
}

void writeCard(InventedText& out) {
    out.text(R"({"cardNumber":"4000000000000002","custName":")");
    out.word();
    out.text(R"(","holderName":")");
    out.word();
    out.text(
        R"(","cvv":"123","pin":"","note":"","expirationDate":{"day":1,"month":2,"year":2031}})");
}

void writeList(InventedText& out, std::size_t count, void (*writeEntry)(InventedText&)) {
    for (std::size_t entry = 0; entry < count; ++entry) {
        out.text(entry == 0 ? "" : ",");
        writeEntry(out);
    }
}

} // namespace

std::string tirelExport(std::size_t records, std::uint64_t seed) {
    const std::size_t notes = records / 10;
    const std::size_t cards = records / 20;
    InventedText out(seed);
    out.text(R"({"logins":[)");
    writeList(out, records - notes - cards, writeLogin);
    out.text(R"(],"notes":[)");
    writeList(out, notes, writeNote);
    out.text(R"(],"cards":[)");
    writeList(out, cards, writeCard);
    out.text("]}");
    return out.take();
}

} // namespace Rellinor::Benchmarks
