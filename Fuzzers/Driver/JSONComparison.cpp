#include "Fuzzers/Driver/JSONComparison.hpp"

#include <cstddef>

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

} // namespace Rellinor::Fuzzers
