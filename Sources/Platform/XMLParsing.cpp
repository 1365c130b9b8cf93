#include "Platform/XMLParsing.hpp"

#include <exception>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <string>

#include <expat.h>

#include "Platform/WipedHeap.hpp"

namespace Rellinor {

namespace {

constexpr int deepest = 256;

struct ParserDeleter {
    void operator()(::XML_Parser parser) const noexcept { ::XML_ParserFree(parser); }
};

using Parser = std::unique_ptr<std::remove_pointer_t<::XML_Parser>, ParserDeleter>;

/// What the parser's functions are given.
struct State {
    ::XML_Parser parser;
    XMLHandler& handler;
    int depth = 0;
    std::optional<XMLFailure::Reason> refusal = {};
    std::exception_ptr thrown = {};

    void stop() const noexcept { (void)::XML_StopParser(parser, XML_FALSE); }

    void refuse(XMLFailure::Reason reason) noexcept {
        refusal = refusal.value_or(reason);
        stop();
    }

    /// Calls the handler: nothing may be thrown through a function in C.
    void tell(auto&& call) noexcept {
        if (thrown || refusal) {
            return;
        }
        try {
            call(handler);
        } catch (...) {
            thrown = std::current_exception();
            stop();
        }
    }
};

State& stateOf(void* owner) noexcept {
    return *static_cast<State*>(owner);
}

void beginElement(void* owner, const char* name, const char** attributes) {
    State& state = stateOf(owner);
    if (++state.depth > deepest) {
        state.refuse(XMLFailure::Reason::depth);
    }
    state.tell([&](XMLHandler& handler) {
        handler.beginElement(name);
        // Names and values take turns, up to a null.
        for (; *attributes != nullptr; attributes += 2) {    // NOLINT(*-pointer-arithmetic)
            handler.attribute(attributes[0], attributes[1]); // NOLINT(*-pointer-arithmetic)
        }
    });
}

void endElement(void* owner, const char* /*name*/) {
    State& state = stateOf(owner);
    --state.depth;
    state.tell([](XMLHandler& handler) { handler.endElement(); });
}

void characters(void* owner, const char* text, int size) {
    stateOf(owner).tell(
        [&](XMLHandler& handler) { handler.text({text, static_cast<std::size_t>(size)}); });
}

void documentType(void* owner, const char* /*name*/, const char* /*system*/,
                  const char* /*identifier*/, int /*hasSubset*/) {
    stateOf(owner).refuse(XMLFailure::Reason::documentType);
}

void declaration(void* owner, const char* /*version*/, const char* encoding, int /*standalone*/) {
    if (encoding == nullptr) {
        return;
    }
    std::string name(encoding);
    for (char& letter : name) {
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    if (name != "UTF-8" && name != "UTF-16") {
        stateOf(owner).refuse(XMLFailure::Reason::encoding);
    }
}

XMLFailure::Reason reasonOf(::XML_Error error, bool isAtEnd) noexcept {
    switch (error) {
    case XML_ERROR_UNKNOWN_ENCODING:
    case XML_ERROR_INCORRECT_ENCODING:
        return XMLFailure::Reason::encoding;
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_PARTIAL_CHAR:
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
        return XMLFailure::Reason::end;
    default:
        return isAtEnd ? XMLFailure::Reason::end : XMLFailure::Reason::grammar;
    }
}

} // namespace

std::optional<XMLFailure> parseXML(std::string_view text, XMLHandler& handler) {
    constexpr ::XML_Memory_Handling_Suite memory{
        .malloc_fcn = &allocateWiped, .realloc_fcn = &reallocateWiped, .free_fcn = &freeWiped};

    // In one piece: tokens that stand in two are looked at again and again.
    if (text.size() > std::numeric_limits<int>::max()) {
        return XMLFailure{.reason = XMLFailure::Reason::size, .offset = 0};
    }
    // A text without a mark is UTF-8 even if its declaration says UTF-16: it was that before it
    // came here.
    const bool isUTF16 = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
    const Parser parser(::XML_ParserCreate_MM(isUTF16 ? nullptr : "UTF-8", &memory, nullptr));
    if (!parser) {
        throw std::bad_alloc();
    }
    State state{.parser = parser.get(), .handler = handler};
    ::XML_SetUserData(parser.get(), &state);
    ::XML_SetElementHandler(parser.get(), &beginElement, &endElement);
    ::XML_SetCharacterDataHandler(parser.get(), &characters);
    ::XML_SetStartDoctypeDeclHandler(parser.get(), &documentType);
    ::XML_SetXmlDeclHandler(parser.get(), &declaration);

    const auto status =
        ::XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
    if (state.thrown) {
        std::rethrow_exception(state.thrown);
    }
    if (status == XML_STATUS_OK) {
        return std::nullopt;
    }
    const auto error = ::XML_GetErrorCode(parser.get());
    if (error == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    const auto place = ::XML_GetCurrentByteIndex(parser.get());
    const auto offset = place < 0 ? text.size() : static_cast<std::size_t>(place);
    const bool isAtEnd = offset >= text.size();
    return XMLFailure{.reason = state.refusal.value_or(reasonOf(error, isAtEnd)), .offset = offset};
}

} // namespace Rellinor
