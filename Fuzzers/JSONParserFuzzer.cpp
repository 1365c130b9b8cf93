// What the parser tells of a JSON text, against a reader that follows the grammar. The first byte
// of an input says where the text is cut into two pieces.

#include <cstddef>
#include <string>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Platform/JSONParser.hpp"
#include "Tests/Reference/JSONReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

using Reference = Tests::JSONReferenceValue;

/// Writes down what it is told, one part behind the other.
class Transcript final : public JSONEvents {
public:
    void beginObject() override { _text += "{ "; }

    void endObject() override { _text += "} "; }

    void beginArray() override { _text += "[ "; }

    void endArray() override { _text += "] "; }

    void key(std::string_view text) override { add("key ", text); }

    void string(std::string_view text) override { add("string ", text); }

    void decodedString(std::string_view text) override { add("string ", text); }

    void integer(std::int64_t value) override { add("integer ", std::to_string(value)); }

    void null() override { _text += "null "; }

    void otherValue() override { _text += "other "; }

    void add(std::string_view name, std::string_view text) {
        _text += name;
        _text += std::to_string(text.size());
        _text += ':';
        _text += text;
        _text += ' ';
    }

    [[nodiscard]] const std::string& text() const { return _text; }

private:
    std::string _text;
};

void tell(const Reference& value, Transcript& events) {
    switch (value.kind) {
        using enum Reference::Kind;
    case object:
        events.beginObject();
        for (const auto& [name, member] : value.members) {
            events.key(name);
            tell(member, events);
        }
        return events.endObject();
    case array:
        events.beginArray();
        for (const Reference& element : value.elements) {
            tell(element, events);
        }
        return events.endArray();
    case string:
        return events.string(value.text);
    case number:
        if (const auto integer = value.integer()) {
            return events.integer(*integer);
        }
        return events.otherValue();
    case boolean:
        return events.otherValue();
    case null:
        return events.null();
    }
}

} // namespace

void fuzz(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const std::string_view text = input.substr(1);
    const auto cut = static_cast<unsigned char>(input.front()) % (text.size() + 1);
    const std::string first(text.substr(0, cut));
    const std::string second(text.substr(cut));

    Transcript told;
    const bool isJSON = parseJSON({first, second}, told);
    if (Tests::hasEndlessExponent(text)) {
        return;
    }
    const auto reference = Tests::referenceJSON(text);
    expect(isJSON == reference.has_value());
    if (reference) {
        Transcript expected;
        tell(*reference, expected);
        expect(told.text() == expected.text());
    }
}

} // namespace Rellinor::Fuzzers
