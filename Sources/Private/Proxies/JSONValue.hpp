#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

#include "Private/Proxies/JSONNodes.hpp"
#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

class JSONObject;
class JSONObjects;

// What a value is is told by its kind, which is looked at first.
// NOLINTBEGIN(*-union-access)

/// A value of a JSON document, which must outlive it; a view.
class JSONValue {
public:
    /// A null that stands nowhere.
    JSONValue() noexcept = default;

    explicit JSONValue(const JSONNode& node) noexcept : _node(&node) {}

    [[nodiscard]] bool isNowhere() const noexcept { return _node == &nowhere; }

    [[nodiscard]] JSONKind kind() const noexcept { return _node->kind; }

    [[nodiscard]] bool isNull() const noexcept { return _node->kind == JSONKind::null; }

    // Each absent if the value is of another type. Texts belong to the document's memory.

    [[nodiscard]] std::optional<std::string_view> text() const noexcept {
        return _node->kind == JSONKind::string ? std::optional(_node->text()) : std::nullopt;
    }

    [[nodiscard]] std::optional<std::int64_t> integer() const noexcept {
        return _node->kind == JSONKind::integer ? std::optional(_node->content.integer)
                                                : std::nullopt;
    }

    [[nodiscard]] std::optional<JSONObject> object() const noexcept;

    /// A list whose elements are all objects; so is the empty one.
    [[nodiscard]] std::optional<JSONObjects> objects() const noexcept;

    /// Calls `visit` with each element of a list, in their order; returns whether this is one. For
    /// documents with `JSONLists::ofAnything`.
    bool forEachElement(auto&& visit) const {
        if (_node->kind != JSONKind::objects && _node->kind != JSONKind::array) {
            return false;
        }
        for (const JSONNode* place = _node + 1; place != _node->content.behind;) {
            const JSONNode& element = JSONNodes::at(place);
            visit(JSONValue(element));
            place = JSONNodes::behind(element);
        }
        return true;
    }

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

private:
    const JSONNode* _node;
};

/// A list of objects, in their order; a view.
class JSONObjects {
public:
    class Iterator {
    public:
        using value_type = JSONObject;
        using difference_type = std::ptrdiff_t;

        Iterator() noexcept = default;

        explicit Iterator(const JSONNode* place) noexcept : _place(place) {}

        [[nodiscard]] JSONObject operator*() const noexcept {
            return JSONObject(JSONNodes::at(_place));
        }

        Iterator& operator++() noexcept {
            _place = JSONNodes::behind(JSONNodes::at(_place));
            return *this;
        }

        Iterator operator++(int) noexcept {
            const Iterator before = *this;
            ++*this;
            return before;
        }

        bool operator==(const Iterator&) const noexcept = default;

    private:
        const JSONNode* _place = nullptr;
    };

    /// @param node  of a list of objects
    explicit JSONObjects(const JSONNode& node) noexcept : _node(&node) {}

    [[nodiscard]] Iterator begin() const noexcept { return Iterator(_node + 1); }

    [[nodiscard]] Iterator end() const noexcept { return Iterator(_node->content.behind); }

    [[nodiscard]] bool empty() const noexcept { return begin() == end(); }

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

} // namespace Rellinor
