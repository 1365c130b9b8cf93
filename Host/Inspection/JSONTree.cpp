#include "Host/Inspection/JSONTree.hpp"

#include <algorithm>
#include <array>
#include <climits>
#include <ranges>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/error.hpp>
#include <boost/json/parse_options.hpp>

#include "Host/Inspection/JSONInteger.hpp"

namespace Rellinor::Host {

namespace {

/// Finds words.
class Vocabulary {
public:
    explicit Vocabulary(JSONWords words) {
        for (std::size_t i = 0; i < words.size(); ++i) {
            const auto number = static_cast<JSONWord>(i + 1);
            _letters[letterOf(words[i])] = true;
            if (words[i].ends_with('*')) {
                _beginnings.emplace_back(words[i].substr(0, words[i].size() - 1), number);
            } else {
                _words.emplace(words[i], number);
            }
        }
    }

    /// The number of a text, of which the beginning is enough.
    [[nodiscard]] JSONWord numberOf(std::string_view text) const {
        if (!_letters[letterOf(text)]) {
            return 0; // most texts
        }
        if (const auto found = _words.find(text); found != _words.end()) {
            return found->second;
        }
        const auto found = std::ranges::find_if(
            _beginnings, [&](const auto& beginning) { return text.starts_with(beginning.first); });
        return found != _beginnings.end() ? found->second : JSONWord{0};
    }

private:
    /// The first letter of a text.
    static std::size_t letterOf(std::string_view text) noexcept {
        return text.empty() ? 0 : static_cast<unsigned char>(text.front());
    }

    std::array<bool, std::size_t{1} << CHAR_BIT> _letters{}; // that words begin with
    std::unordered_map<std::string_view, JSONWord> _words;
    std::vector<std::pair<std::string_view, JSONWord>> _beginnings;
};

// What the parser calls for each part. Its names and arguments are the parser's.
// NOLINTBEGIN(readability-identifier-naming,readability-convert-member-functions-to-static)
class Handler {
public:
    static constexpr std::size_t max_array_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_object_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_string_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_key_size = static_cast<std::size_t>(-1);

    using Error = boost::json::error_code;
    using Text = boost::json::string_view;

    explicit Handler(JSONWords words) : _vocabulary(words) {}

    // Moving a deque takes memory.
    [[nodiscard]] JSONNodes take() { return std::move(_nodes); }

    bool on_document_begin(Error& /*error*/) noexcept { return true; }

    bool on_document_end(Error& /*error*/) noexcept { return true; }

    bool on_object_begin(Error& /*error*/) { return begin(JSONKind::object); }

    bool on_object_end(std::size_t /*count*/, Error& /*error*/) { return end(); }

    bool on_array_begin(Error& /*error*/) { return begin(JSONKind::objects); }

    bool on_array_end(std::size_t /*count*/, Error& /*error*/) { return end(); }

    bool on_key_part(Text piece, std::size_t /*size*/, Error& /*error*/) {
        return addToText(piece);
    }

    bool on_key(Text piece, std::size_t /*size*/, Error& /*error*/) {
        _key = endText(piece);
        return true;
    }

    bool on_string_part(Text piece, std::size_t /*size*/, Error& /*error*/) {
        return addToText(piece);
    }

    bool on_string(Text piece, std::size_t /*size*/, Error& /*error*/) {
        const JSONWord word = endText(piece);
        return add({.kind = JSONKind::text, .word = word});
    }

    bool on_number_part(Text piece, Error& /*error*/) {
        _number.append(piece.data(), piece.size());
        return true;
    }

    bool on_int64(std::int64_t /*value*/, Text /*text*/, Error& /*error*/) {
        _number.clear();
        return add({.kind = JSONKind::integer});
    }

    bool on_uint64(std::uint64_t /*value*/, Text text, Error& /*error*/) { return number(text); }

    // The parser's own value is rounded.
    bool on_double(double /*value*/, Text text, Error& /*error*/) { return number(text); }

    bool on_bool(bool value, Error& /*error*/) {
        return add({.kind = value ? JSONKind::yes : JSONKind::other});
    }

    bool on_null(Error& /*error*/) { return add({.kind = JSONKind::null}); }

    bool on_comment_part(Text /*piece*/, Error& /*error*/) noexcept { return true; }

    bool on_comment(Text /*piece*/, Error& /*error*/) noexcept { return true; }

private:
    /// Of a long text the beginning tells that it is no word.
    bool addToText(Text piece) {
        if (_unkept == 0) {
            _text.append(piece.data(), std::min(piece.size(), longestJSONWord - _text.size()));
        }
        return true;
    }

    JSONWord endText(Text piece) {
        if (_unkept > 0) {
            return 0;
        }
        if (_text.empty()) { // most come in one piece
            return _vocabulary.numberOf(std::string_view(piece).substr(0, longestJSONWord));
        }
        addToText(piece);
        const JSONWord number = _vocabulary.numberOf(_text);
        _text.clear();
        return number;
    }

    bool number(Text piece) {
        _number.append(piece.data(), piece.size());
        const JSONKind kind = isInteger(_number) ? JSONKind::integer : JSONKind::other;
        _number.clear();
        return add({.kind = kind});
    }

    bool begin(JSONKind kind) {
        if (!isKept(kind)) {
            ++_unkept;
            return true;
        }
        _nodes.push_back({.kind = kind, .key = _key});
        _open.push_back(_nodes.size() - 1);
        _key = 0;
        return true;
    }

    bool end() {
        if (_unkept > 0) {
            --_unkept;
            return true;
        }
        _nodes[_open.back()].behind = _nodes.size();
        _open.pop_back();
        return true;
    }

    bool add(JSONNode node) {
        if (isKept(node.kind)) {
            node.key = _key;
            _nodes.push_back(node);
        }
        return true;
    }

    /// Whether the next value, of this kind, is kept; it is counted in any case.
    bool isKept(JSONKind kind) {
        if (_unkept > 0) {
            return false;
        }
        if (_open.empty()) {
            return true;
        }
        JSONNode& parent = _nodes[_open.back()];
        parent.count += parent.count < static_cast<std::uint32_t>(-1) ? 1 : 0;
        if (parent.kind == JSONKind::object) {
            return _key != 0;
        }
        _key = 0;
        if (kind != JSONKind::object) {
            parent.kind = JSONKind::array;
        }
        return parent.kind == JSONKind::objects;
    }

    Vocabulary _vocabulary;
    JSONNodes _nodes;
    std::vector<std::size_t> _open; // the objects and arrays that are kept and not yet ended
    std::string _text;
    std::string _number;
    JSONWord _key = 0;       // of the next value, if it is a member
    std::size_t _unkept = 0; // how many containers are open within a value that is not kept
};

// NOLINTEND(readability-identifier-naming,readability-convert-member-functions-to-static)

JSONFailure::Reason reasonOf(const boost::json::error_code& error) {
    using enum JSONFailure::Reason;
    if (error == boost::json::error::incomplete) {
        return cutShort;
    }
    if (error == boost::json::error::too_deep) {
        return tooDeep;
    }
    if (error == boost::json::error::exponent_overflow) {
        return longExponent;
    }
    return error ? other : somethingBehind;
}

} // namespace

std::optional<JSONValue> JSONValue::operator[](JSONWord key) const noexcept {
    for (std::size_t index = _index + 1; index != node().behind;) {
        const JSONValue member(*_nodes, index);
        if (member.node().key == key) {
            return member;
        }
        index = member.indexBehind();
    }
    return std::nullopt;
}

std::optional<JSONValue> JSONValue::find(JSONWord key, JSONKind kind) const noexcept {
    const std::optional<JSONValue> value = (*this)[key];
    return value && value->kind() == kind ? value : std::nullopt;
}

std::size_t JSONValue::countOf(JSONWord key) const noexcept {
    return static_cast<std::size_t>(std::ranges::count_if(
        begin(), end(), [&](const JSONValue& member) { return member.node().key == key; }));
}

std::expected<JSONTree, JSONFailure>
JSONTree::parsed(std::initializer_list<std::string_view> pieces, JSONWords words,
                 std::size_t depth) {
    boost::json::parse_options strict;
    strict.max_depth = depth;
    boost::json::basic_parser<Handler> parser(strict, words);
    boost::json::error_code error;
    std::size_t offset = 0;
    for (const std::string_view piece : pieces) {
        const std::size_t parsed = parser.write_some(true, piece.data(), piece.size(), error);
        offset += parsed;
        if (error || parsed < piece.size()) {
            return std::unexpected(JSONFailure{.reason = reasonOf(error), .offset = offset});
        }
    }
    (void)parser.write_some(false, nullptr, 0, error);
    if (error) {
        return std::unexpected(JSONFailure{.reason = reasonOf(error), .offset = offset});
    }
    return JSONTree(parser.handler().take());
}

} // namespace Rellinor::Host
