// Mutations that keep most of a JSON text JSON: a value takes the place of another, goes, or comes
// twice. Changing bytes alone would take long to find out what a member of another type does. The
// targets whose inputs are JSON are linked with it.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// NOLINTBEGIN(readability-identifier-naming): libFuzzer's own
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t capacity);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t capacity, unsigned seed);

namespace {

constexpr std::array<std::string_view, 18> samples = {
    "null",
    "true",
    "1",
    "-0",
    "1.0",
    "1.5",
    "1e3",
    "\"\"",
    "[]",
    "{}",
    "[{}]",
    "[1]",
    "[[]]",
    "{},1",
    ",",
    "\"a\"",
    "\"\\ud83d\\ude00\"",
    "9223372036854775808",
};

/// Where the text ends that begins at a quote; the end of all if it has none.
std::size_t endOfString(std::string_view text, std::size_t quote) {
    std::size_t end = quote + 1;
    while (end < text.size() && text[end] != '"') {
        end += text[end] == '\\' ? 2 : 1;
    }
    return std::min(end + 1, text.size());
}

std::size_t endOfContainer(std::string_view text, std::size_t bracket) {
    std::size_t depth = 0;
    for (std::size_t index = bracket; index < text.size(); ++index) {
        if (text[index] == '"') {
            index = endOfString(text, index) - 1;
        } else if (text[index] == '{' || text[index] == '[') {
            ++depth;
        } else if ((text[index] == '}' || text[index] == ']') && --depth == 0) {
            return index + 1;
        }
    }
    return text.size();
}

/// The values and keys of a text, those in others too.
std::vector<std::string_view> valuesIn(std::string_view text) {
    constexpr std::string_view marks = "{}[]:,\" \t\r\n";
    std::vector<std::string_view> values;
    for (std::size_t index = 0; index < text.size();) {
        std::size_t end = index + 1;
        if (text[index] == '"') {
            end = endOfString(text, index);
            values.push_back(text.substr(index, end - index));
        } else if (text[index] == '{' || text[index] == '[') {
            values.push_back(text.substr(index, endOfContainer(text, index) - index));
        } else if (!marks.contains(text[index])) {
            end = std::min(text.find_first_of(marks, index), text.size());
            values.push_back(text.substr(index, end - index));
        }
        index = end;
    }
    return values;
}

/// A text in which one value is changed, of which it has at least one.
std::string mutated(std::string_view text, const std::vector<std::string_view>& values,
                    std::minstd_rand& random) {
    const auto anyOf = [&](const auto& list) { return std::string(list[random() % list.size()]); };
    const std::string_view value = values[random() % values.size()];
    const std::string before(text.begin(), value.begin());
    std::string behind(value.end(), text.end());
    switch (random() % 4) {
    case 0:
        return before + anyOf(samples) + behind;
    case 1:
        return before + anyOf(values) + behind;
    case 2:
        return before + std::string(value) + "," + anyOf(values) + behind;
    default: // with the comma behind it
        behind.erase(0, behind.starts_with(',') ? 1 : 0);
        return before + behind;
    }
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t capacity,
                                    unsigned seed) {
    std::minstd_rand random(seed);
    // NOLINTNEXTLINE(*-reinterpret-cast): bytes are characters here
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string_view> values = valuesIn(text);
    if (values.empty() || random() % 2 == 0) {
        return LLVMFuzzerMutate(data, size, capacity);
    }
    const std::string result = mutated(text, values, random);
    if (result.size() > capacity) {
        return LLVMFuzzerMutate(data, size, capacity);
    }
    std::ranges::copy(result, data);
    return result.size();
}

// NOLINTEND(readability-identifier-naming)
