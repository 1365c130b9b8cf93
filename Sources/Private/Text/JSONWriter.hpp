#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Platform/WipedBuffer.hpp"

namespace Rellinor {

/// Writes a JSON text, without blanks, from its parts. They come in the order in which `JSONParser`
/// tells them.
///
/// What is no UTF-8 in a text is repaired, as `UTF8.hpp` has it. Besides what JSON asks for,
/// characters are escaped that would command a terminal, break a line or turn the direction of
/// writing wherever the JSON is looked at.
class JSONWriter {
public:
    void beginObject() { begin("{"); }

    void endObject() { end("}"); }

    void beginArray() { begin("["); }

    void endArray() { end("]"); }

    void key(std::string_view name);

    void string(std::string_view text);

    void integer(std::int64_t value);

    /// What is written so far; a view until more is. It is wiped with the writer.
    [[nodiscard]] std::string_view written() noexcept { return {_buffer.bytes().data(), _size}; }

private:
    void begin(std::string_view bracket);

    void end(std::string_view bracket);

    void append(std::string_view piece);

    void appendString(std::string_view text);

    /// @param text  UTF-8
    void appendEscaped(std::string_view text);

    void appendEscape(std::int32_t codePoint);

    WipedBuffer _buffer;
    std::size_t _size = 0;       // what of it is written
    std::string_view _separator; // between what was written last and another value or key
};

} // namespace Rellinor
