#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Rellinor {

/// Is told what stands in an XML text, in its order. All texts are UTF-8 and valid during the call
/// alone.
class XMLHandler {
public:
    XMLHandler(const XMLHandler&) = delete;
    XMLHandler& operator=(const XMLHandler&) = delete;

    virtual void beginElement(std::string_view name) = 0;

    /// An attribute of the element that was begun last.
    virtual void attribute(std::string_view name, std::string_view value) = 0;

    virtual void endElement() = 0;

    /// A piece of the text of an element: a text may come in many.
    virtual void text(std::string_view piece) = 0;

protected:
    XMLHandler() = default;
    ~XMLHandler() = default;
};

/// Why a text is not read, and where that shows.
struct XMLFailure {
    enum class Reason : std::uint8_t {
        grammar,
        end, ///< the text ends before it is complete
        depth,
        documentType, ///< a text with declarations of its own, which may be made to explode
        encoding,     ///< neither UTF-8, nor UTF-16 with a mark
        size,         ///< 2 GiB or more
        notBuiltIn,   ///< the library has been built without XML
    };

    Reason reason = Reason::grammar;
    std::size_t offset = 0;
};

/// Reads an XML text from its begin to its end, nested 256 levels deep at most. What it is made of
/// is wiped from the memory that this takes.
///
/// @throws  what the handler throws
/// @throws std::bad_alloc
[[nodiscard]] std::optional<XMLFailure> parseXML(std::string_view text, XMLHandler& handler);

} // namespace Rellinor
