#include "Benchmarks/InventedText.hpp"

#include <array>

namespace Rellinor::Benchmarks {

namespace {

constexpr std::array<std::string_view, 16> words = {
    "amber", "birch",   "cobalt", "dune",   "ember", "fjord",  "grüner", "harbor",
    "iris",  "juniper", "kettle", "lagoon", "maple", "nimbus", "opal",   "prairie",
};
constexpr std::string_view secretCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!#$%&()*+-./:;<=>?@[]^_{|}~";

} // namespace

void InventedText::word() {
    _text += words.at(below(words.size()));
}

void InventedText::address() {
    text("https://");
    word();
    text(".");
    word();
    text(".example/account/sign-in?session=");
    number();
}

void InventedText::account() {
    word();
    number();
    text("@mail.example");
}

void InventedText::secret() {
    for (std::size_t length = 8 + below(13); length > 0; --length) {
        _text += secretCharacters.at(below(secretCharacters.size()));
    }
}

} // namespace Rellinor::Benchmarks
