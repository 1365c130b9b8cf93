#include "Host/Inspection/JSONProblem.hpp"

#include <cstddef>
#include <expected>
#include <utility>

#include "Host/Inspection/EncodingProblem.hpp"
#include "Host/Inspection/TextLines.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

namespace {

/// Where a text fails to be JSON.
Remark remarkOn(const JSONFailure& failure, std::string_view text) {
    const std::size_t line = lineAt(text, failure.offset);
    switch (failure.reason) {
    case JSONFailure::Reason::cutShort:
        return {.text = "the file ends too early: it was cut short", .places = {line}};
    case JSONFailure::Reason::tooDeep:
        return {.text = "nested too deep to be read", .places = {line}};
    case JSONFailure::Reason::somethingBehind:
        return {.text = "something stands behind the end of the JSON text", .places = {line}};
    case JSONFailure::Reason::longExponent:
    case JSONFailure::Reason::other:
        break;
    }
    return {.text = "the JSON is broken here", .places = {line}};
}

} // namespace

std::optional<JSONTree> parseJSONFile(std::string_view contents, JSONWords words,
                                      Inspection& inspection) {
    const std::string_view text = withoutByteOrderMark(contents);
    auto tree = JSONTree::parsed({text}, words);
    if (tree) {
        return *std::move(tree);
    }
    if (tree.error().reason == JSONFailure::Reason::longExponent) {
        return std::nullopt; // nothing is known to be wrong
    }
    inspection.place = "line";
    if (contents.empty()) {
        inspection.wrong.push_back({.text = "the file is empty", .places = {}});
    } else if (auto problem = encodingProblem(contents)) {
        inspection.wrong.push_back(*std::move(problem));
    } else {
        inspection.wrong.push_back(remarkOn(tree.error(), text));
    }
    return std::nullopt;
}

} // namespace Rellinor::Host
