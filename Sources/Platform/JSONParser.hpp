#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace Rellinor {

/// Told the parts of a JSON text in the order in which they stand.
class JSONEvents {
public:
    JSONEvents(const JSONEvents&) = delete;
    JSONEvents& operator=(const JSONEvents&) = delete;

    virtual void beginObject() = 0;
    virtual void endObject() = 0;
    virtual void beginArray() = 0;
    virtual void endArray() = 0;

    /// The key of a member; its value follows. The view lasts only for the call.
    virtual void key(std::string_view text) = 0;

    /// A value that is a text, as a view into what is parsed.
    virtual void string(std::string_view text) = 0;

    /// A value that is a text, which was written in another way. The view lasts only for the call.
    virtual void decodedString(std::string_view text) = 0;

    /// A value that is an integer of 64 bits, however it is spelt: 1.0 is one.
    virtual void integer(std::int64_t value) = 0;

    virtual void null() = 0;

    /// A value that is true, false or any other number.
    virtual void otherValue() = 0;

protected:
    JSONEvents() = default;
    ~JSONEvents() = default;
};

/// Parses a JSON text and tells `events` its parts as it goes. False if the text is not JSON, which
/// may show after some parts were told.
///
/// The grammar is RFC 8259 to the letter, in strict UTF-8; a number may be of any size. The text
/// begins with an array or an object, and 512 of these may be nested.
///
/// @param pieces  the text, in pieces that are read as one
/// @throws std::bad_alloc, and what `events` throws
[[nodiscard]] bool parseJSON(std::initializer_list<std::string_view> pieces, JSONEvents& events);

} // namespace Rellinor
