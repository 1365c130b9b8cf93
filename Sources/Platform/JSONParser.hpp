#pragma once

#include <string_view>

namespace Rellinor {

/// Told the parts of a JSON text in the order in which they stand. Texts come decoded and last only
/// for the call.
class JSONEvents {
public:
    JSONEvents(const JSONEvents&) = delete;
    JSONEvents& operator=(const JSONEvents&) = delete;

    virtual void beginObject() = 0;
    virtual void endObject() = 0;
    virtual void beginArray() = 0;
    virtual void endArray() = 0;

    /// The key of a member; its value follows.
    virtual void key(std::string_view text) = 0;

    /// A value that is a text.
    virtual void string(std::string_view text) = 0;

    /// A value that is a number, true, false or null.
    virtual void otherValue() = 0;

protected:
    JSONEvents() = default;
    ~JSONEvents() = default;
};

/// Parses a JSON text and tells `events` its parts as it goes. False if the text is not JSON, which
/// may show after some parts were told.
///
/// The grammar is RFC 8259 to the letter, in strict UTF-8; a number may be of any size. The text
/// begins with an array or an object, perhaps behind one byte-order mark, and 512 of these may be
/// nested.
///
/// @throws std::bad_alloc, and what `events` throws
[[nodiscard]] bool parseJSON(std::string_view text, JSONEvents& events);

} // namespace Rellinor
