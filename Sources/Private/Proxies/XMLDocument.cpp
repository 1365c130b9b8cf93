#include "Private/Proxies/XMLDocument.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "Platform/Fault.hpp"
#include "Platform/WipedBuffer.hpp"
#include "Platform/XMLParsing.hpp"

namespace Rellinor {

namespace {

/// A text that grows by pieces, in memory that is wiped.
class GrowingText {
public:
    void append(std::string_view piece) {
        constexpr std::size_t smallest = 4096;

        if (piece.size() > _buffer.size() - _size) {
            WipedBuffer larger(std::max({smallest, _buffer.size() * 2, _size + piece.size()}));
            std::ranges::copy(text(), larger.bytes().begin());
            _buffer = std::move(larger);
        }
        std::ranges::copy(piece, _buffer.bytes().subspan(_size).begin());
        _size += piece.size();
    }

    void clear() noexcept { _size = 0; }

    [[nodiscard]] std::string_view text() noexcept { return {_buffer.bytes().data(), _size}; }

private:
    WipedBuffer _buffer;
    std::size_t _size = 0;
};

bool isBlank(std::string_view text) noexcept {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

FailureReason reasonOf(XMLFailure::Reason reason) noexcept {
    switch (reason) {
        using enum XMLFailure::Reason;
    case grammar:
        return FailureReason::damaged;
    case end:
        return FailureReason::cutShort;
    case depth:
        return FailureReason::nestedTooDeep;
    case documentType:
        return FailureReason::refusedForItsCost;
    case encoding:
        return FailureReason::notUTF8;
    case size:
        return FailureReason::tooLarge;
    case notBuiltIn:
        return FailureReason::notBuiltIn;
    }
    fault();
}

} // namespace

/// Makes a document of what the parser tells.
class XMLDocumentBuilder final : public XMLHandler {
public:
    explicit XMLDocumentBuilder(ImportMemory& memory) noexcept : _memory(memory) {}

    [[nodiscard]] XMLDocument take() && noexcept { return std::move(_document); }

    void beginElement(std::string_view name) override {
        XMLElement& element = _document._elements.append(XMLElement(_memory.copy(name)));
        if (_open.empty()) {
            _document._root = &element;
        } else {
            dropText();
            XMLElement& parent = *_open.back();
            (parent._last == nullptr ? parent._first : parent._last->_next) = &element;
            parent._last = &element;
        }
        _open.push_back(&element);
    }

    void attribute(std::string_view name, std::string_view value) override {
        XMLElement& element = *_open.back();
        element._attributes = &_document._attributes.append({.name = _memory.copy(name),
                                                             .value = _memory.copy(value),
                                                             .next = element._attributes});
    }

    void endElement() override {
        XMLElement& element = *_open.back();
        if (element._first == nullptr) {
            element._text = _memory.copy(_text.text());
            _text.clear();
        } else {
            dropText();
        }
        _open.pop_back();
    }

    void text(std::string_view piece) override { _text.append(piece); }

private:
    /// Drops what stands beside elements, which are blanks for looks.
    void dropText() noexcept {
        _document._hasTextBesideElements =
            _document._hasTextBesideElements || !isBlank(_text.text());
        _text.clear();
    }

    ImportMemory& _memory;
    XMLDocument _document;
    GrowingText _text; // of the element that was begun last, or behind the one that was ended last
    std::vector<XMLElement*> _open;
};

const XMLElement* XMLElement::find(std::string_view name) const noexcept {
    const auto found = std::ranges::find(begin(), end(), name, &XMLElement::name);
    return found != end() ? &*found : nullptr;
}

std::string_view XMLElement::textOf(std::string_view name) const noexcept {
    const XMLElement* const element = find(name);
    return element != nullptr ? element->text() : "";
}

std::string_view XMLElement::attribute(std::string_view name) const noexcept {
    const XMLAttribute* attribute = _attributes;
    while (attribute != nullptr && attribute->name != name) {
        attribute = attribute->next;
    }
    return attribute != nullptr ? attribute->value : "";
}

std::expected<XMLDocument, ReadFailure> XMLDocument::parsed(std::string_view text,
                                                            ImportMemory& memory) {
    XMLDocumentBuilder builder(memory);
    if (const auto failure = parseXML(text, builder)) {
        return std::unexpected(
            ReadFailure{.reason = reasonOf(failure->reason), .position = failure->offset});
    }
    return std::move(builder).take();
}

} // namespace Rellinor
