#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Rellinor::Host {

/// A JSON text on one line, written member by member.
///
/// Besides what JSON asks for, characters are escaped that would command a terminal, break a line
/// or turn the direction of writing wherever the text is looked at: those that
/// `TirelExportData::encode` escapes.
class JSONText {
public:
    /// What was written since this was last taken.
    [[nodiscard]] std::string_view written() const noexcept { return _text; }

    void clear() noexcept { _text.clear(); }

    void beginObject() { begin('{'); }

    void endObject() { end('}'); }

    void beginArray() { begin('['); }

    void endArray() { end(']'); }

    /// The name of the member whose value comes next.
    ///
    /// @param name  needs no escape
    void key(std::string_view name);

    /// @param text  UTF-8
    void value(std::string_view text);

    void value(const char* text) { value(std::string_view(text)); }

    void value(std::integral auto number) { raw(std::to_string(number)); }

    void value(bool truth) { raw(truth ? "true" : "false"); }

    /// Null if absent.
    template <typename Value>
    void value(const std::optional<Value>& optional) {
        optional ? value(*optional) : raw("null");
    }

    void member(std::string_view name, const auto& itsValue) {
        key(name);
        value(itsValue);
    }

private:
    void begin(char bracket);
    void end(char bracket);
    void raw(std::string_view token);

    std::string _text;
    bool _needsComma = false;
};

} // namespace Rellinor::Host
