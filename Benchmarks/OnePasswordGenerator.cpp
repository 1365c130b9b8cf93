#include "Benchmarks/OnePasswordGenerator.hpp"

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

void writeHead(InventedText& out) {
    out.text(R"({"uuid":"0123456789ABCDEF0123456789AB)");
    out.number();
    out.text(R"(","updatedAt":14000)");
    out.number();
    out.text(R"(,"securityLevel":"SL5","contentsHash":"0a1b2c3d","title":")");
    out.word();
    out.text(" ");
    out.word();
    out.text(R"(","secureContents":{)");
}

void writeField(InventedText& out, bool isPassword) {
    out.text(R"({"value":")");
    out.word();
    out.number();
    out.text(isPassword ? R"(","name":"pass","type":"P","designation":"password"})"
                        : R"(@mail.example","name":"user","type":"T","designation":"username"})");
}

void writeWebForm(InventedText& out) {
    out.text(R"("fields":[)");
    writeField(out, false);
    out.text(",");
    writeField(out, true);
    out.text(
        R"(,{"value":"","name":"remember","type":"C","designation":""}],"URLs":[{"label":"website","url":"https:\/\/)");
    out.word();
    out.text(
        R"(.example\/account\/sign-in"}],"htmlMethod":"post","htmlAction":"","notesPlain":""},"createdAt":1390000000,"typeName":"webforms.WebForm"})");
}

void writeNote(InventedText& out) {
    out.text(R"("notesPlain":")");
    for (std::size_t line = 0, lines = 2 + out.below(4); line < lines; ++line) {
        out.word();
        out.text(" ");
        out.number();
        out.text("\\n");
    }
    out.text(R"("},"createdAt":1390000000,"typeName":"securenotes.SecureNote"})");
}

void writeOther(InventedText& out) {
    out.text(
        R"("number":"4000000000000002","cvv":"123"},"typeName":"wallet.financial.CreditCard"})");
}

} // namespace

std::string onePasswordExport(std::size_t records, std::uint64_t seed) {
    InventedText out(seed);
    for (std::size_t record = 0; record < records; ++record) {
        writeHead(out);
        const std::size_t kind = out.below(10);
        if (kind == 0) {
            writeNote(out);
        } else if (kind == 1) {
            writeOther(out);
        } else {
            writeWebForm(out);
        }
        out.text("\n***00000000-0000-0000-0000-000000000000***\n");
    }
    return out.take();
}

} // namespace Rellinor::Benchmarks
