// The locations that paths give, and their texts.

#include <cstddef>
#include <filesystem>
#include <string>

#include <Rellinor/URL.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Tests/Reference/URLReference.hpp"

namespace Rellinor::Fuzzers {

namespace {

std::string withoutSlashesAtTheEnd(std::string path) {
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    return path;
}

} // namespace

void fuzz(std::string_view input) {
    static const std::string currentFolder = std::filesystem::current_path().string() + '/';
    const std::string path = (input.starts_with('/') ? "" : currentFolder) + std::string(input);
    const URL url = URL::fileURLWithPath(input);
    expect(url.path() == withoutSlashesAtTheEnd(path));
    expect(url.absoluteString() == Tests::referenceFileURL(path));

    const bool isParted = path.back() == '/' || input.starts_with('/');
    const std::string component = path + (isParted ? "" : "/") + std::string(input);
    expect(url.appendingPathComponent(input).absoluteString() ==
           Tests::referenceFileURL(component));

    const std::string stem = withoutSlashesAtTheEnd(path);
    const std::string extended = stem + ".json" + path.substr(stem.size());
    expect(url.appendingPathExtension("json").absoluteString() ==
           Tests::referenceFileURL(extended));
}

} // namespace Rellinor::Fuzzers
