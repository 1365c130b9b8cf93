#include "Benchmarks/FirefoxGenerator.hpp"

#include <string_view>

#include "Benchmarks/InventedText.hpp"

namespace Rellinor::Benchmarks {

namespace {

void writeSite(InventedText& out) {
    out.text("https://");
    out.word();
    out.text("-");
    out.number();
    out.text(".example");
}

void writeCiphertext(InventedText& out, std::size_t characters) {
    constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    out.text("MDIEEPgAAAAAAAAAAAAAAAAAAAEwFAYIKoZIhvcNAwcECG");
    for (; characters > 0; --characters) {
        out.text(alphabet.substr(out.below(alphabet.size()), 1));
    }
    out.text("==");
}

void writeTime(InventedText& out, std::string_view name) {
    out.text(name);
    out.text("17");
    out.text(std::to_string(10000000000 + out.below(10000000000)));
}

void writeLogin(InventedText& out, std::size_t id) {
    out.text(R"({"id":)");
    out.text(std::to_string(id));
    out.text(R"(,"hostname":")");
    writeSite(out);
    out.text(R"(","httpRealm":null,"formSubmitURL":")");
    writeSite(out);
    out.text(R"(","usernameField":"user","passwordField":"pass","encryptedUsername":")");
    writeCiphertext(out, 24 + 4 * out.below(4));
    out.text(R"(","encryptedPassword":")");
    writeCiphertext(out, 24 + 4 * out.below(8));
    out.text(R"(","guid":"{5a1f0c52-0b0e-4c56-9d53-)");
    out.text(std::to_string(100000000000 + id));
    out.text(R"(}","encType":1)");
    writeTime(out, R"(,"timeCreated":)");
    writeTime(out, R"(,"timeLastUsed":)");
    writeTime(out, R"(,"timePasswordChanged":)");
    out.text(R"(,"timesUsed":)");
    out.text(std::to_string(out.below(100)));
    out.text(R"(,"syncCounter":1,"everSynced":false,"encryptedUnknownFields":null})");
}

} // namespace

std::string firefoxLogins(std::size_t logins, std::uint64_t seed) {
    InventedText out(seed);
    out.text(R"({"nextId":)");
    out.text(std::to_string(logins + 1));
    out.text(R"(,"logins":[)");
    for (std::size_t id = 1; id <= logins; ++id) {
        out.text(id == 1 ? "" : ",");
        writeLogin(out, id);
    }
    out.text(
        R"(],"potentiallyVulnerablePasswords":[],"dismissedBreachAlertsByLoginGUID":{},"version":3})");
    return out.take();
}

} // namespace Rellinor::Benchmarks
