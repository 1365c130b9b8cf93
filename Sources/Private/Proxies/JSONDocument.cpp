#include "Private/Proxies/JSONDocument.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "Platform/Fault.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Text/JSONParser.hpp"

namespace Rellinor {

namespace {

using KeyIndex = std::uint8_t;

/// Finds the known keys. What followed a key the last time most likely follows it again, and most
/// names that are not known are told by their length and first character.
class KeyFinder {
public:
    explicit KeyFinder(JSONKeys keys) noexcept : _keys(keys) {
        require(keys.size() <= std::numeric_limits<KeyIndex>::max());
        for (const std::string_view key : keys) {
            _marks |= markOf(key);
        }
    }

    /// The place of a name among the known ones; absent if it is none of them.
    [[nodiscard]] std::optional<KeyIndex> find(std::string_view name) noexcept {
        const KeyIndex guess = _successors[_last];
        if (guess < _keys.size() && _keys[guess] == name) {
            return _last = guess;
        }
        if ((_marks & markOf(name)) == 0) {
            return std::nullopt;
        }
        const auto found = std::ranges::find(_keys, name);
        if (found == _keys.end()) {
            return std::nullopt;
        }
        const auto index = static_cast<KeyIndex>(found - _keys.begin());
        _successors[_last] = index;
        return _last = index;
    }

private:
    /// One bit of 64, the same for equal names.
    static std::uint64_t markOf(std::string_view name) noexcept {
        const auto first = static_cast<unsigned char>(name.empty() ? '\0' : name.front());
        return std::uint64_t{1} << ((name.size() + std::size_t{7} * first) % 64);
    }

    JSONKeys _keys;
    std::uint64_t _marks = 0; // of all keys
    std::array<KeyIndex, std::numeric_limits<KeyIndex>::max()> _successors = {};
    KeyIndex _last = 0;
};

/// Keeps what it is told. A template, so that keeping little costs nothing for what keeps more.
template <JSONExtent extent>
class NodesBuilder {
public:
    NodesBuilder(JSONKeys keys, ImportMemory& memory) noexcept : _keys(keys), _memory(memory) {}

    [[nodiscard]] JSONNodes take() && noexcept { return std::move(_nodes); }

    [[nodiscard]] const JSONNode& root() const noexcept { return *_root; }

    /// Which element of the list that is the first member is not complete, from 1 on; 0 if there is
    /// no such list.
    [[nodiscard]] std::size_t elementOfFirstList() const noexcept {
        if (_open.size() < 2 || _open[1]->kind != JSONKind::objects) {
            return 0;
        }
        std::size_t element = 1;
        const JSONNode* const incomplete = _open.size() > 2 ? _open[2] : nullptr;
        for (const JSONNode* place = _open[1] + 1; place != _nodes.next(); ++element) {
            const JSONNode& complete = JSONNodes::at(place);
            if (&complete == incomplete) {
                break;
            }
            place = JSONNodes::behind(complete);
        }
        return element;
    }

    void beginObject() { begin(JSONKind::object); }

    void endObject() { end(); }

    void beginArray() { begin(JSONKind::objects); }

    void endArray() { end(); }

    void key(JSONString text) {
        if (_unkept == 0) {
            const std::string_view name = decoded(text);
            _key = _keys.find(name);
            if constexpr (extent == JSONExtent::everything) {
                keepOther(name);
            }
        }
    }

    void string(JSONString text) {
        if (isKept(JSONKind::string)) {
            addString(decoded(text));
        }
    }

    void integer(std::int64_t value) {
        if (isKept(JSONKind::integer)) {
            add({.content = {.integer = value}, .kind = JSONKind::integer});
        }
    }

    void boolean(bool value) {
        if (isKept(JSONKind::boolean)) {
            add({.content = {.integer = value ? 1 : 0}, .kind = JSONKind::boolean});
        }
    }

    void null() {
        if (isKept(JSONKind::null)) {
            add({.kind = JSONKind::null});
        }
    }

    void otherNumber() {
        if (isKept(JSONKind::other)) {
            add({.kind = JSONKind::other});
        }
    }

private:
    void begin(JSONKind kind) {
        if (!isKept(kind)) {
            ++_unkept;
            return;
        }
        JSONNode& node = add({.kind = kind});
        _root = _root == nullptr ? &node : _root;
        _open.push_back(&node);
    }

    void end() {
        if (_unkept > 0) {
            --_unkept;
            return;
        }
        _open.back()->content = {.behind = _nodes.next()};
        _open.pop_back();
    }

    /// Whether the next value, of this kind, is kept. Any but an object makes the array that it
    /// stands in no list of objects.
    [[nodiscard]] bool isKept(JSONKind kind) noexcept {
        if (_unkept > 0) {
            return false;
        }
        if (_open.empty()) {
            return true;
        }
        JSONNode& parent = *_open.back();
        if (parent.kind == JSONKind::object) {
            return _key.has_value();
        }
        if (kind != JSONKind::object) {
            parent.kind = JSONKind::array;
        }
        return parent.kind == JSONKind::objects || extent != JSONExtent::listsOfObjects;
    }

    /// Keeps the name of the next member if it is none of the known ones.
    void keepOther(std::string_view name) {
        if (!_key) {
            _key = JSONNode::noKey;
            add({.kind = JSONKind::name}).setText(name);
        }
    }

    JSONNode& add(JSONNode node) {
        node.key = _key.value_or(0);
        return _nodes.append(node);
    }

    [[nodiscard]] std::string_view decoded(JSONString text) {
        return text.hasEscapes() ? text.decoded(_memory.allocate(text.written().size()))
                                 : text.written();
    }

    void addString(std::string_view text) {
        require(std::uint64_t{text.size()} >> unsigned{JSONNode::bitsOfLength} == 0);
        add({.kind = JSONKind::string}).setText(text);
    }

    KeyFinder _keys;
    ImportMemory& _memory;
    JSONNodes _nodes;
    const JSONNode* _root = nullptr;
    std::vector<JSONNode*> _open; // the objects and lists that are kept and not yet ended
    std::optional<KeyIndex> _key; // of the next value, if it is a member
    std::size_t _unkept = 0;      // how many containers are open within a value that is not kept
};

FailureReason reasonOf(JSONFailure::Reason reason) noexcept {
    switch (reason) {
        using enum JSONFailure::Reason;
    case grammar:
        return FailureReason::notJSON;
    case end:
        return FailureReason::cutShort;
    case depth:
        return FailureReason::nestedTooDeep;
    case notUTF8:
        return FailureReason::notUTF8;
    }
    fault();
}

using Parsed = std::expected<JSONDocument, JSONFailure>;

/// Calls `parse` with the extent as a constant.
Parsed withConstant(JSONExtent extent, auto&& parse) {
    switch (extent) {
        using enum JSONExtent;
    case listsOfObjects:
        return parse.template operator()<listsOfObjects>();
    case allLists:
        return parse.template operator()<allLists>();
    case everything:
        return parse.template operator()<everything>();
    }
    fault();
}

} // namespace

Parsed JSONDocument::parsed(std::string_view text, JSONKeys keys, ImportMemory& memory,
                            JSONExtent extent) {
    return withConstant(extent, [&]<JSONExtent constant>() -> Parsed {
        NodesBuilder<constant> builder(keys, memory);
        JSONParser parser(text, builder);
        if (!parser.parse()) {
            JSONFailure failure = parser.failure();
            failure.element = builder.elementOfFirstList();
            return std::unexpected(failure);
        }
        const JSONNode& root = builder.root();
        return JSONDocument(std::move(builder).take(), root);
    });
}

Parsed JSONDocument::parsedEach(const std::function<std::optional<std::string_view>()>& next,
                                JSONKeys keys, ImportMemory& memory) {
    NodesBuilder<JSONExtent::everything> builder(keys, memory);
    builder.beginArray();
    std::uint64_t element = 1;
    for (auto text = next(); text; text = next(), ++element) {
        JSONParser parser(*text, builder);
        if (!parser.parse()) {
            JSONFailure failure = parser.failure();
            failure.element = element;
            return std::unexpected(failure);
        }
    }
    builder.endArray();
    const JSONNode& root = builder.root();
    return JSONDocument(std::move(builder).take(), root);
}

ReadFailure failureOf(const JSONFailure& failure, std::string_view text) noexcept {
    const FailureReason encoding = reasonForNoUTF8(text);
    const bool isUTF16 = encoding == FailureReason::utf16;
    return {.reason = isUTF16 ? encoding : reasonOf(failure.reason), .position = failure.offset};
}

} // namespace Rellinor
