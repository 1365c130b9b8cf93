#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace Rellinor::Tests {

/// Random texts from a seed. Draws straight from the engine, so that a seed gives the same text on
/// every machine.
class RandomText {
public:
    explicit RandomText(std::uint64_t seed) : _random(seed) {}

    /// A number below `limit`.
    std::size_t below(std::size_t limit) { return _random() % limit; }

    /// One of `choices`.
    template <std::size_t count>
    std::string_view oneOf(const std::array<std::string_view, count>& choices) {
        return choices.at(below(count));
    }

    /// Up to `longest` pieces drawn from `pieces`.
    template <std::size_t count>
    std::string of(const std::array<std::string_view, count>& pieces, std::size_t longest) {
        std::string text;
        for (std::size_t length = below(longest + 1); length > 0; --length) {
            text += oneOf(pieces);
        }
        return text;
    }

private:
    std::mt19937_64 _random;
};

} // namespace Rellinor::Tests
