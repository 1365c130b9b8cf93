#include "Fuzzers/Driver/JSONComparison.hpp"

#include <cstddef>
#include <optional>

#include "Fuzzers/Driver/Fuzzer.hpp"

namespace Rellinor::Fuzzers {

namespace {

using Reference = Tests::JSONReferenceValue;

void expectEqualMembers(const JSONObject& object, const Reference& reference, JSONKeys keys) {
    for (std::size_t key = 0; key < keys.size(); ++key) {
        const auto value = object.valueAt(key);
        const Reference* const member = reference.member(keys[key]);
        expect(value.has_value() == (member != nullptr));
        if (value) {
            expectEqual(*value, *member, keys);
        }
    }
}

} // namespace

void expectEqual(const JSONValue& value, const Reference& reference, JSONKeys keys) {
    expect(value.isNull() == (reference.kind == Reference::Kind::null));
    expect(value.text() == reference.string());
    expect(value.integer() == reference.integer());
    const bool isBoolean = reference.kind == Reference::Kind::boolean;
    expect(value.boolean() == (isBoolean ? std::optional(reference.text == "true") : std::nullopt));

    const auto object = value.object();
    expect(object.has_value() == (reference.kind == Reference::Kind::object));
    if (object) {
        expectEqualMembers(*object, reference, keys);
    }

    const auto objects = value.objects();
    const auto* const elements = reference.objects();
    expect(objects.has_value() == (elements != nullptr));
    if (objects) {
        auto element = elements->begin();
        for (const JSONObject& next : *objects) {
            expect(element != elements->end());
            expectEqualMembers(next, *element, keys);
            ++element;
        }
        expect(element == elements->end());
    }
}

void expectAllEqual(const JSONValue& value, const Reference& reference, JSONKeys keys) {
    expectEqual(value, reference, keys);
    if (const auto object = value.object()) {
        auto member = reference.members.begin();
        object->forEachNamed(keys, [&](std::string_view name, const JSONValue& next) {
            expect(member != reference.members.end() && name == member->first);
            expectAllEqual(next, member->second, keys);
            ++member;
        });
        expect(member == reference.members.end());
    }
    const auto elements = value.elements();
    expect(elements.has_value() == (reference.kind == Reference::Kind::array));
    if (elements) {
        auto element = reference.elements.begin();
        for (const JSONValue next : *elements) {
            expect(element != reference.elements.end());
            expectAllEqual(next, *element, keys);
            ++element;
        }
        expect(element == reference.elements.end());
    }
}

} // namespace Rellinor::Fuzzers
