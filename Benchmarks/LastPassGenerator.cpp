#include "Benchmarks/LastPassGenerator.hpp"

#include <array>
#include <random>
#include <string_view>

namespace Rellinor::Benchmarks {

namespace {

constexpr std::array<std::string_view, 16> words = {
    "amber", "birch",   "cobalt", "dune",   "ember", "fjord",  "grüner", "harbor",
    "iris",  "juniper", "kettle", "lagoon", "maple", "nimbus", "opal",   "prairie",
};
constexpr std::string_view secretCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!#$%&()*+-./:;<=>?@[]^_{|}~";

/// Writes rows with numbers drawn from the engine itself: the distributions of the standard library
/// differ from one implementation to the next.
class Writer {
public:
    explicit Writer(std::uint64_t seed) : _random(seed) {}

    void header() { _text += "url,username,password,extra,name,grouping,fav\n"; }

    void row() {
        const std::size_t kind = below(100);
        if (kind < 5) {
            note();
        } else {
            login(kind < 15 ? Commas::quoted : Commas::none);
        }
    }

    [[nodiscard]] std::string take() { return std::move(_text); }

private:
    enum class Commas : std::uint8_t { none, quoted };

    void login(Commas commas) {
        _text += "https://";
        word();
        _text += '.';
        word();
        _text += ".example/account/sign-in?session=";
        number();
        _text += ',';
        word();
        number();
        _text += "@mail.example,";
        secret();
        _text += commas == Commas::quoted ? R"(,"opened in spring, moved in autumn",")" : ",,";
        word();
        _text += commas == Commas::quoted ? ", " : " ";
        word();
        _text += commas == Commas::quoted ? "\"," : ",";
        word();
        _text += below(4) == 0 ? ",1\n" : ",0\n";
    }

    void note() {
        _text += "http://sn,,,\"";
        for (std::size_t line = 0, lines = 2 + below(4); line < lines; ++line) {
            word();
            _text += ": ";
            secret();
            _text += ", ";
            word();
            _text += '\n';
        }
        _text += "\",";
        word();
        _text += " note,";
        word();
        _text += ",0\n";
    }

    void word() { _text += words.at(below(words.size())); }

    void number() { _text += std::to_string(below(100000)); }

    void secret() {
        for (std::size_t length = 8 + below(13); length > 0; --length) {
            _text += secretCharacters.at(below(secretCharacters.size()));
        }
    }

    [[nodiscard]] std::size_t below(std::size_t limit) { return _random() % limit; }

    std::mt19937_64 _random;
    std::string _text;
};

} // namespace

std::string lastPassExport(std::size_t rows, std::uint64_t seed) {
    Writer writer(seed);
    writer.header();
    for (std::size_t row = 0; row < rows; ++row) {
        writer.row();
    }
    return writer.take();
}

} // namespace Rellinor::Benchmarks
