#include "Tests/Support/JSONChanges.hpp"

#include <array>
#include <optional>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

namespace Rellinor::Tests {

namespace {

namespace json = boost::json;

void addPaths(const json::value& value, const std::string& path, std::vector<std::string>& paths) {
    if (!path.empty()) {
        paths.push_back(path);
    }
    if (value.is_object()) {
        for (const auto& member : value.get_object()) {
            addPaths(member.value(), path + "/" + std::string(member.key()), paths);
        }
    } else if (value.is_array()) {
        for (std::size_t index = 0; index < value.get_array().size(); ++index) {
            addPaths(value.get_array()[index], path + "/" + std::to_string(index), paths);
        }
    }
}

void addTexts(const json::value& value, std::vector<std::string>& texts) {
    if (value.is_string()) {
        texts.emplace_back(value.get_string());
    } else if (value.is_object()) {
        for (const auto& member : value.get_object()) {
            addTexts(member.value(), texts);
        }
    } else if (value.is_array()) {
        for (const json::value& element : value.get_array()) {
            addTexts(element, texts);
        }
    }
}

void remove(json::value& whole, const std::string& path) {
    const auto slash = path.rfind('/');
    json::value& parent = whole.at_pointer(path.substr(0, slash));
    const std::string name = path.substr(slash + 1);
    if (parent.is_object()) {
        parent.get_object().erase(name);
    } else {
        parent.get_array().erase(parent.get_array().begin() + std::stol(name));
    }
}

} // namespace

void forEachChange(std::string_view text, const std::function<void(const JSONChange&)>& visit) {
    constexpr auto replacements = std::to_array<std::string_view>(
        {"null", "{}", "[]", "[7]", "[{}]", "7", "1.5", "false", R"("other")"});

    const json::value whole = json::parse(text);
    std::vector<std::string> paths;
    addPaths(whole, "", paths);
    for (const std::string& path : paths) {
        json::value changed = whole;
        remove(changed, path);
        JSONChange change{.path = path,
                          .text = json::serialize(changed),
                          .lost = {},
                          .kept = {},
                          .name = "missing"};
        if (const json::value& was = whole.at_pointer(path); was.is_string()) {
            change.lost = was.get_string();
        }
        addTexts(changed, change.kept);
        visit(change);
        for (const std::string_view replacement : replacements) {
            changed = whole;
            changed.at_pointer(path) = json::parse(replacement);
            change.text = json::serialize(changed);
            change.name = replacement;
            visit(change);
        }
    }
}

} // namespace Rellinor::Tests
