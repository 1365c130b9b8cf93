#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <expected>
#include <initializer_list>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Rellinor::Host {

/// What an inspection asks for by name: keys of members, and texts that tell something. One that
/// ends with an asterisk stands for all texts that begin like it. Fewer than 256, of less than
/// `longestJSONWord` bytes; they outlive the tree.
using JSONWords = std::span<const std::string_view>;

inline constexpr std::size_t longestJSONWord = 64;

/// The number of a word in its list, counted from 1; 0 for any other text.
using JSONWord = std::uint8_t;

/// The number of a word, which must be in the list.
consteval JSONWord numberOf(std::string_view word, JSONWords words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == word) {
            return static_cast<JSONWord>(i + 1);
        }
    }
    throw std::logic_error("not in the list");
}

enum class JSONKind : std::uint8_t {
    object,
    objects, ///< an array of nothing but objects, perhaps of none
    array,   ///< any other array; the objects before its first other element are kept
    text,
    integer, ///< of 64 bits, however it is spelt: 1.0 is one
    null,
    yes, ///< true
    other,
};

/// One value of a tree. Behind an object or array stand the values that are in it.
struct JSONNode {
    std::size_t behind = 0;  ///< of an object or array: the index behind all that is in it
    std::uint32_t count = 0; ///< of an object or array: how much is in it, kept or not
    JSONKind kind = JSONKind::null;
    JSONWord key = 0;  ///< of a member
    JSONWord word = 0; ///< of a text
};

using JSONNodes = std::deque<JSONNode>;

/// A value in a tree, which must outlive it; a view.
class JSONValue {
public:
    JSONValue(const JSONNodes& nodes, std::size_t index) noexcept : _nodes(&nodes), _index(index) {}

    [[nodiscard]] JSONKind kind() const noexcept { return node().kind; }

    /// Whether it is a text, and that one.
    [[nodiscard]] bool is(JSONWord word) const noexcept {
        return kind() == JSONKind::text && node().word == word;
    }

    /// How many members or elements the file has there; 0 for any other value.
    [[nodiscard]] std::size_t count() const noexcept { return node().count; }

    /// The value of a member, the first of those of one name; absent if there is none.
    [[nodiscard]] std::optional<JSONValue> operator[](JSONWord key) const noexcept;

    /// The same, if it is of that kind.
    [[nodiscard]] std::optional<JSONValue> find(JSONWord key, JSONKind kind) const noexcept;

    /// How many members have that name.
    [[nodiscard]] std::size_t countOf(JSONWord key) const noexcept;

    class Iterator {
    public:
        using value_type = JSONValue;
        using difference_type = std::ptrdiff_t;

        Iterator() noexcept = default;

        Iterator(const JSONNodes& nodes, std::size_t index) noexcept
            : _nodes(&nodes), _index(index) {}

        [[nodiscard]] JSONValue operator*() const noexcept { return {*_nodes, _index}; }

        Iterator& operator++() noexcept {
            _index = (**this).indexBehind();
            return *this;
        }

        Iterator operator++(int) noexcept {
            return {*_nodes, std::exchange(_index, (**this).indexBehind())};
        }

        bool operator==(const Iterator&) const noexcept = default;

    private:
        const JSONNodes* _nodes = nullptr;
        std::size_t _index = 0;
    };

    /// What is kept of an object's members or an array's elements, in order.
    [[nodiscard]] Iterator begin() const noexcept { return {*_nodes, _index + 1}; }

    [[nodiscard]] Iterator end() const noexcept { return {*_nodes, indexBehind()}; }

private:
    [[nodiscard]] const JSONNode& node() const noexcept { return (*_nodes)[_index]; }

    [[nodiscard]] std::size_t indexBehind() const noexcept {
        return kind() <= JSONKind::array ? node().behind : _index + 1;
    }

    const JSONNodes* _nodes;
    std::size_t _index;
};

/// Why a text cannot be parsed, and after how many bytes that shows.
struct JSONFailure {
    enum class Reason : std::uint8_t {
        cutShort,
        tooDeep,
        somethingBehind,
        longExponent, ///< of a number: JSON all the same, which an import takes
        other,
    };

    Reason reason = Reason::other;
    std::size_t offset = 0;
};

/// A JSON text, as much of it as tells whether it can be imported: the members whose keys are
/// words, by the rules of an import. It keeps no text, only which word each is.
class JSONTree {
public:
    static constexpr std::size_t deepestNesting = 512; // that an import takes

    /// Parses a text of strict UTF-8.
    ///
    /// @param pieces  the text, in pieces that are read as one
    /// @param depth   how many arrays and objects may be nested
    [[nodiscard]] static std::expected<JSONTree, JSONFailure>
    parsed(std::initializer_list<std::string_view> pieces, JSONWords words,
           std::size_t depth = deepestNesting);

    [[nodiscard]] JSONValue root() const noexcept { return {_nodes, 0}; }

private:
    explicit JSONTree(JSONNodes nodes) : _nodes(std::move(nodes)) {}

    JSONNodes _nodes;
};

} // namespace Rellinor::Host
