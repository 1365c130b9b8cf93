#include "Host/Inspection/TextLines.hpp"

#include <algorithm>

namespace Rellinor::Host {

bool TextLines::next(TextLine& line) noexcept {
    if (_rest.empty()) {
        return false;
    }
    line = {.number = ++_number, .text = _rest.substr(0, _rest.find('\n'))};
    _rest.remove_prefix(std::min(line.text.size() + 1, _rest.size()));
    return true;
}

std::size_t lineAt(std::string_view text, std::size_t offset) noexcept {
    return static_cast<std::size_t>(std::ranges::count(text.substr(0, offset), '\n')) + 1;
}

} // namespace Rellinor::Host
