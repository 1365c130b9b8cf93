#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>

#include "Private/Proxies/JSONNodes.hpp"
#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

class JSONObject;
class JSONObjects;
class JSONElements;

// The kind of a node tells which member of its union is set; the kind is looked at first.
// NOLINTBEGIN(*-union-access)

/// A value of a JSON document, which must outlive it; a view.
class JSONValue {
public:
    /// A null of no document.
    JSONValue() noexcept = default;

    explicit JSONValue(const JSONNode& node) noexcept : _node(&node) {}

    [[nodiscard]] bool isNowhere() const noexcept { return _node == &nowhere; }

    [[nodiscard]] JSONKind kind() const noexcept { return _node->kind; }

    /// Whether this is the name of the next member, which a walk over all members meets.
    [[nodiscard]] bool isName() const noexcept { return _node->kind == JSONKind::name; }

    [[nodiscard]] bool isNull() const noexcept { return _node->kind == JSONKind::null; }

    // Each absent if the value is of another type. Texts belong to the document's memory.

    [[nodiscard]] std::optional<std::string_view> text() const noexcept {
        return _node->kind == JSONKind::string ? std::optional(_node->text()) : std::nullopt;
    }

    [[nodiscard]] std::optional<std::int64_t> integer() const noexcept {
        return _node->kind == JSONKind::integer ? std::optional(_node->content.integer)
                                                : std::nullopt;
    }

    [[nodiscard]] std::optional<bool> boolean() const noexcept {
        return _node->kind == JSONKind::boolean ? std::optional(_node->content.integer != 0)
                                                : std::nullopt;
    }

    [[nodiscard]] std::optional<JSONObject> object() const noexcept;

    /// A list whose elements are all objects; so is the empty one.
    [[nodiscard]] std::optional<JSONObjects> objects() const noexcept;

    /// Any list; its elements are there only if all lists were to be kept, or if all are objects.
    [[nodiscard]] std::optional<JSONElements> elements() const noexcept;

private:
    static constexpr JSONNode nowhere{};

    const JSONNode* _node = &nowhere;
};

/// An object as a dictionary from known keys to values; a view.
class JSONObject {
public:
    /// @param node  of an object
    explicit JSONObject(const JSONNode& node) noexcept : _node(&node) {}

    /// The value of a member, the first of those of one name; absent if there is none.
    [[nodiscard]] std::optional<JSONValue> operator[](RecordKey auto key) const noexcept {
        return valueAt(indexOf(key));
    }

    // The value of a member, absent too if it is of another type.

    [[nodiscard]] std::optional<std::string_view> text(RecordKey auto key) const noexcept {
        const auto value = (*this)[key];
        return value ? value->text() : std::nullopt;
    }

    [[nodiscard]] std::optional<JSONObject> object(RecordKey auto key) const noexcept {
        const auto value = (*this)[key];
        return value ? value->object() : std::nullopt;
    }

    [[nodiscard]] std::optional<JSONObjects> objects(RecordKey auto key) const noexcept;

    /// The value of the member whose key has this place among the known ones.
    [[nodiscard]] std::optional<JSONValue> valueAt(std::size_t key) const noexcept {
        const JSONNode* place = _node + 1;
        while (place != _node->content.behind) {
            const JSONNode& member = JSONNodes::at(place);
            if (member.key == key) {
                return JSONValue(member);
            }
            place = JSONNodes::behind(member);
        }
        return std::nullopt;
    }

    /// Calls `visit` with the place of each member's key among the known ones and its value, in the
    /// order of the text.
    void forEach(auto&& visit) const {
        const JSONNode* place = _node + 1;
        while (place != _node->content.behind) {
            const JSONNode& member = JSONNodes::at(place);
            visit(std::size_t{member.key}, JSONValue(member));
            place = JSONNodes::behind(member);
        }
    }

    /// Calls `visit` with the name of each member and its value, in the order of the text, if
    /// everything was to be kept.
    ///
    /// @param keys  the known ones
    // Who visits may go deeper in turn, no deeper than texts are nested.
    // NOLINTNEXTLINE(misc-no-recursion)
    void forEachNamed(std::span<const std::string_view> keys, auto&& visit) const {
        std::string_view name;
        const JSONNode* place = _node + 1;
        while (place != _node->content.behind) {
            const JSONNode& member = JSONNodes::at(place);
            if (member.kind == JSONKind::name) {
                name = member.text();
            } else {
                visit(member.key == JSONNode::noKey ? name : keys[member.key], JSONValue(member));
            }
            place = JSONNodes::behind(member);
        }
    }

private:
    const JSONNode* _node;
};

/// Goes through what stands in an array.
template <typename Element>
class JSONIterator {
public:
    using value_type = Element;
    using difference_type = std::ptrdiff_t;

    JSONIterator() noexcept = default;

    explicit JSONIterator(const JSONNode* place) noexcept : _place(place) {}

    [[nodiscard]] Element operator*() const noexcept { return Element(JSONNodes::at(_place)); }

    JSONIterator& operator++() noexcept {
        _place = JSONNodes::behind(JSONNodes::at(_place));
        return *this;
    }

    JSONIterator operator++(int) noexcept {
        const JSONIterator before = *this;
        ++*this;
        return before;
    }

    bool operator==(const JSONIterator&) const noexcept = default;

private:
    const JSONNode* _place = nullptr;
};

/// A list of objects, in their order; a view.
class JSONObjects {
public:
    using Iterator = JSONIterator<JSONObject>;

    /// @param node  of a list of objects
    explicit JSONObjects(const JSONNode& node) noexcept : _node(&node) {}

    [[nodiscard]] Iterator begin() const noexcept { return Iterator(_node + 1); }

    [[nodiscard]] Iterator end() const noexcept { return Iterator(_node->content.behind); }

    [[nodiscard]] bool empty() const noexcept { return begin() == end(); }

private:
    const JSONNode* _node;
};

/// A list of any values, in their order; a view.
class JSONElements {
public:
    using Iterator = JSONIterator<JSONValue>;

    /// @param node  of an array
    explicit JSONElements(const JSONNode& node) noexcept : _node(&node) {}

    [[nodiscard]] Iterator begin() const noexcept { return Iterator(_node + 1); }

    [[nodiscard]] Iterator end() const noexcept { return Iterator(_node->content.behind); }

private:
    const JSONNode* _node;
};

// NOLINTEND(*-union-access)

std::optional<JSONObjects> JSONObject::objects(RecordKey auto key) const noexcept {
    const auto value = (*this)[key];
    return value ? value->objects() : std::nullopt;
}

inline std::optional<JSONObject> JSONValue::object() const noexcept {
    return _node->kind == JSONKind::object ? std::optional(JSONObject(*_node)) : std::nullopt;
}

inline std::optional<JSONObjects> JSONValue::objects() const noexcept {
    return _node->kind == JSONKind::objects ? std::optional(JSONObjects(*_node)) : std::nullopt;
}

inline std::optional<JSONElements> JSONValue::elements() const noexcept {
    const bool isArray = _node->kind == JSONKind::objects || _node->kind == JSONKind::array;
    return isArray ? std::optional(JSONElements(*_node)) : std::nullopt;
}

} // namespace Rellinor
