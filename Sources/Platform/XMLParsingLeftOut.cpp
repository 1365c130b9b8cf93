// In place of XMLParsing.cpp for a library without XML.

#include "Platform/XMLParsing.hpp"

namespace Rellinor {

std::optional<XMLFailure> parseXML(std::string_view /*text*/, XMLHandler& /*handler*/) {
    return XMLFailure{.reason = XMLFailure::Reason::notBuiltIn, .offset = 0};
}

} // namespace Rellinor
