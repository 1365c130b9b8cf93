#include <algorithm>

#include "Host/Detection/Recognisers.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

namespace {

using namespace std::string_view_literals;

/// Whether no more is wrong with the beginning of a file than that it ends within a character.
bool isCutCharacter(const EncodingFault& fault, std::string_view beginning) noexcept {
    constexpr std::size_t longestCharacter = 4;

    return beginning.size() >= sizeOfBeginning && fault.offset &&
           beginning.size() - *fault.offset < longestCharacter;
}

bool isControl(char character) noexcept {
    return static_cast<unsigned char>(character) < ' ' && !"\t\n\v\f\r\x1B"sv.contains(character);
}

} // namespace

std::optional<Detection> detectEncoding(std::string_view beginning) {
    const auto fault = encodingFault(beginning);
    if (!fault || isCutCharacter(*fault, beginning)) {
        return std::nullopt;
    }
    if (fault->offset && std::ranges::any_of(beginning, isControl)) {
        return unknown("it is not text");
    }
    return unknown(fault->reason, saveAsUTF8);
}

} // namespace Rellinor::Host
