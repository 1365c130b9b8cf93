#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <iterator>
#include <string_view>

#include "Private/Errors/ReadFailure.hpp"
#include "Private/Memory/ChunkedList.hpp"
#include "Private/Memory/ImportMemory.hpp"

namespace Rellinor {

class XMLElement;

/// An attribute of an element.
struct XMLAttribute {
    std::string_view name;
    std::string_view value;
    const XMLAttribute* next = nullptr;
};

/// An element of an XML document, which owns it.
class XMLElement {
public:
    /// Goes through the elements in an element.
    class Iterator {
    public:
        using value_type = XMLElement;
        using difference_type = std::ptrdiff_t;

        Iterator() noexcept = default;

        explicit Iterator(const XMLElement* element) noexcept : _element(element) {}

        [[nodiscard]] const XMLElement& operator*() const noexcept { return *_element; }

        Iterator& operator++() noexcept {
            _element = _element->_next;
            return *this;
        }

        Iterator operator++(int) noexcept {
            const Iterator before = *this;
            ++*this;
            return before;
        }

        bool operator==(const Iterator&) const noexcept = default;

    private:
        const XMLElement* _element = nullptr;
    };

    explicit XMLElement(std::string_view name) noexcept : _name(name) {}

    [[nodiscard]] std::string_view name() const noexcept { return _name; }

    /// The text that it holds; empty if it holds elements.
    [[nodiscard]] std::string_view text() const noexcept { return _text; }

    // The elements that it holds, in their order.

    [[nodiscard]] Iterator begin() const noexcept { return Iterator(_first); }

    [[nodiscard]] static Iterator end() noexcept { return {}; }

    /// The first element of that name in it; null if there is none.
    [[nodiscard]] const XMLElement* find(std::string_view name) const noexcept;

    /// The text of that element; empty if there is none.
    [[nodiscard]] std::string_view textOf(std::string_view name) const noexcept;

    /// The value of an attribute; empty if there is none.
    [[nodiscard]] std::string_view attribute(std::string_view name) const noexcept;

private:
    friend class XMLDocumentBuilder; // NOLINT(*-virtual-class-destructor): it is final

    std::string_view _name;
    std::string_view _text;
    XMLElement* _first = nullptr;
    XMLElement* _last = nullptr;
    XMLElement* _next = nullptr; // in the element around both
    XMLAttribute* _attributes = nullptr;
};

/// An XML text, all of it but comments and the like.
class XMLDocument {
public:
    /// Parses a text in UTF-8, or in UTF-16 with a byte-order mark, or says why not: a text with a
    /// document type is refused, and one that is nested more than 256 levels deep. Names and texts
    /// together take no more memory than half as much again as `text`.
    ///
    /// @param memory  receives names and texts
    /// @throws std::bad_alloc
    [[nodiscard]] static std::expected<XMLDocument, ReadFailure> parsed(std::string_view text,
                                                                        ImportMemory& memory);

    [[nodiscard]] const XMLElement& root() const noexcept { return *_root; }

    /// Whether a text other than blanks stands beside elements. It is not kept.
    [[nodiscard]] bool hasTextBesideElements() const noexcept { return _hasTextBesideElements; }

private:
    friend class XMLDocumentBuilder; // NOLINT(*-virtual-class-destructor): it is final

    ChunkedList<XMLElement> _elements;
    ChunkedList<XMLAttribute> _attributes;
    const XMLElement* _root = nullptr; // moving the list leaves it in place
    bool _hasTextBesideElements = false;
};

} // namespace Rellinor
