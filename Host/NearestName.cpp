#include "Host/NearestName.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

/// How many letters must be put in, left out, changed or swapped with the next to make one word of
/// the other: the distance of optimal string alignment.
std::size_t distance(std::string_view one, std::string_view other) {
    // The last three rows of the table of the distances of all beginnings.
    std::array<std::vector<std::size_t>, 3> rows;
    rows.fill(std::vector<std::size_t>(other.size() + 1));
    auto& [beforeLast, last, current] = rows;
    for (std::size_t j = 0; j <= other.size(); ++j) {
        current[j] = j;
    }
    for (std::size_t i = 1; i <= one.size(); ++i) {
        beforeLast.swap(last);
        last.swap(current);
        current[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t changed = sameLetter(one[i - 1], other[j - 1]) ? 0 : 1;
            current[j] = std::min({last[j] + 1, current[j - 1] + 1, last[j - 1] + changed});
            if (i > 1 && j > 1 && sameLetter(one[i - 1], other[j - 2]) &&
                sameLetter(one[i - 2], other[j - 1])) {
                current[j] = std::min(current[j], beforeLast[j - 2] + 1);
            }
        }
    }
    return current.back();
}

} // namespace

std::string_view nearestName(std::string_view word, std::span<const std::string_view> names) {
    constexpr std::size_t longestWord = 64;
    constexpr std::size_t leastBeginning = 2;

    if (word.size() > longestWord) {
        return {};
    }
    std::string_view nearest;
    std::size_t least = 0;
    for (const std::string_view name : names) {
        const std::size_t found = distance(word, name);
        if (found <= std::max<std::size_t>(1, name.size() / 3) &&
            (nearest.empty() || found < least)) {
            nearest = name;
            least = found;
        }
    }
    if (nearest.empty() && word.size() >= leastBeginning) {
        const auto begun = std::ranges::find_if(names, [&](std::string_view name) {
            return std::ranges::equal(name.substr(0, word.size()), word, sameLetter);
        });
        return begun == names.end() ? std::string_view() : *begun;
    }
    return nearest;
}

} // namespace Rellinor::Host
