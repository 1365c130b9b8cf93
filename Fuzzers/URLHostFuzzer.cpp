// Whether a text is a URL of a host, against the grammar of URLs.

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Platform/URLHost.hpp"
#include "Tests/Reference/URLReference.hpp"

void Rellinor::Fuzzers::fuzz(std::string_view input) {
    const auto host = Tests::referenceHost(input);
    for (const std::string_view wanted : {"sn", "a", "sn-1"}) {
        expect(hasHost(input, wanted) == (host == wanted));
    }
}
