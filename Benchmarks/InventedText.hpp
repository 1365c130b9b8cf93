#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace Rellinor::Benchmarks {

/// Writes invented data with numbers drawn from the engine itself: the distributions of the
/// standard library differ from one implementation to the next.
class InventedText {
public:
    explicit InventedText(std::uint64_t seed) : _random(seed) {}

    void text(std::string_view text) { _text += text; }

    void word();

    void number() { _text += std::to_string(below(100000)); }

    /// The address of a page on some site.
    void address();

    /// A user name, in the form of a mail address.
    void account();

    /// What a generator of passwords would make, without commas and quotes.
    void secret();

    [[nodiscard]] std::size_t below(std::size_t limit) { return _random() % limit; }

    /// What was written.
    [[nodiscard]] std::string take() { return std::move(_text); }

private:
    std::mt19937_64 _random;
    std::string _text;
};

} // namespace Rellinor::Benchmarks
