#include "Tests/Reference/OnePasswordReference.hpp"

#include <vector>

#include "Tests/Reference/TextReference.hpp"

namespace Rellinor::Tests {

namespace {

using Value = JSONReferenceValue;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines = {""};
    for (const char character : text) {
        if (character == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += character;
        }
    }
    return lines;
}

std::optional<std::string> textOf(const Value& object, std::string_view key) {
    const Value* const value = object.member(key);
    return value == nullptr ? std::nullopt : value->string();
}

const Value* secureContentsOf(const Value& record) {
    const Value* const value = record.member("secureContents");
    return value != nullptr && value->kind == Value::Kind::object ? value : nullptr;
}

const std::vector<Value>* listOf(const Value& secureContents, std::string_view key) {
    const Value* const value = secureContents.member(key);
    return value == nullptr ? nullptr : value->objects();
}

std::optional<std::string> urlOf(const Value& secureContents) {
    const std::vector<Value>* const urls = listOf(secureContents, "URLs");
    if (urls == nullptr || urls->empty()) {
        return std::nullopt;
    }
    return textOf(urls->front(), "url");
}

std::optional<std::string> valueOf(const Value& secureContents, const std::string& designation) {
    const std::vector<Value>* const fields = listOf(secureContents, "fields");
    if (fields == nullptr) {
        return std::nullopt;
    }
    for (const Value& field : *fields) {
        if (textOf(field, "designation") == designation) {
            return textOf(field, "value");
        }
    }
    return std::nullopt;
}

std::optional<Password> passwordOf(const Value& record) {
    const Value* const secureContents = secureContentsOf(record);
    if (secureContents == nullptr) {
        return std::nullopt;
    }
    const auto username = valueOf(*secureContents, "username");
    const auto password = valueOf(*secureContents, "password");
    if (!username || !password) {
        return std::nullopt;
    }
    return Password{.username = *username,
                    .password = *password,
                    .url = urlOf(*secureContents).value_or(""),
                    .service = textOf(record, "title")};
}

std::optional<Note> noteOf(const Value& record) {
    const Value* const secureContents = secureContentsOf(record);
    const auto title = textOf(record, "title");
    const auto content =
        secureContents == nullptr ? std::nullopt : textOf(*secureContents, "notesPlain");
    if (!title || !content) {
        return std::nullopt;
    }
    return Note{.color = std::nullopt, .title = *title, .content = *content};
}

} // namespace

std::optional<JSONReferenceValue> referencePIF(std::string_view bytes,
                                               const std::string& topLevelKey) {
    const auto text = referenceDecodedText(bytes);
    if (!text) {
        return std::nullopt;
    }
    std::string kept;
    for (const std::string& line : linesOf(*text)) {
        if (line.starts_with('{')) {
            kept += (kept.empty() ? "" : ",") + line;
        }
    }
    return referenceJSON("{ \"" + topLevelKey + "\": [" + kept + "] }");
}

Outcome referenceOnePasswordImport(std::string_view bytes) {
    const auto contents = referencePIF(bytes, "records");
    if (!contents) {
        return {.error = NSError("Rellinor.PIFParsingError", 1)};
    }
    const std::vector<Value>* const records = contents->member("records")->objects();
    if (records == nullptr) {
        return {.error = NSError("Rellinor.JSONError", 1)};
    }
    Outcome outcome;
    for (const Value& record : *records) {
        const auto type = textOf(record, "typeName");
        if (type == "webforms.WebForm") {
            if (auto password = passwordOf(record)) {
                outcome.passwords.push_back(*std::move(password));
            }
        } else if (type == "securenotes.SecureNote") {
            if (auto note = noteOf(record)) {
                outcome.notes.push_back(*std::move(note));
            }
        }
    }
    return outcome;
}

} // namespace Rellinor::Tests
