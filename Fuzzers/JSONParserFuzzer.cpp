// What the parser tells of a JSON text, against a reader that follows the grammar.

#include <cstddef>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Text/JSONParser.hpp"
#include "Tests/Reference/JSONReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

using Reference = Tests::JSONReferenceValue;

/// Writes down what it is told, one part behind the other.
class Transcript {
public:
    void beginObject() { _text += "{ "; }

    void endObject() { _text += "} "; }

    void beginArray() { _text += "[ "; }

    void endArray() { _text += "] "; }

    void key(JSONString text) { addKey(decoded(text)); }

    void string(JSONString text) { addString(decoded(text)); }

    void integer(std::int64_t value) { add("integer ", std::to_string(value)); }

    void null() { _text += "null "; }

    void boolean(bool value) { _text += value ? "true " : "false "; }

    void otherNumber() { _text += "other "; }

    void addKey(std::string_view text) { add("key ", text); }

    void addString(std::string_view text) { add("string ", text); }

    [[nodiscard]] const std::string& text() const { return _text; }

private:
    static std::string decoded(JSONString text) {
        std::string target(text.written().size(), '\0');
        target.resize(text.decoded(target).size());
        return target;
    }

    void add(std::string_view name, std::string_view text) {
        _text += name;
        _text += std::to_string(text.size());
        _text += ':';
        _text += text;
        _text += ' ';
    }

    std::string _text;
};

void tell(const Reference& value, Transcript& events) {
    switch (value.kind) {
        using enum Reference::Kind;
    case object:
        events.beginObject();
        for (const auto& [name, member] : value.members) {
            events.addKey(name);
            tell(member, events);
        }
        events.endObject();
        break;
    case array:
        events.beginArray();
        for (const Reference& element : value.elements) {
            tell(element, events);
        }
        events.endArray();
        break;
    case string:
        events.addString(value.text);
        break;
    case number:
        if (const auto integer = value.integer()) {
            events.integer(*integer);
        } else {
            events.otherNumber();
        }
        break;
    case boolean:
        events.boolean(value.text == "true");
        break;
    case null:
        events.null();
        break;
    }
}

} // namespace

void fuzz(std::string_view input) {
    Transcript told;
    const bool isJSON = JSONParser(input, told).parse();
    const auto reference = Tests::referenceJSON(input);
    expect(isJSON == reference.has_value());
    if (reference) {
        Transcript expected;
        tell(*reference, expected);
        expect(told.text() == expected.text());
    }
}

} // namespace Rellinor::Fuzzers
