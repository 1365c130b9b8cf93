#include "Host/Detection/Recognisers.hpp"

namespace Rellinor::Host {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    std::string_view layout; ///< empty if nothing is to be imported from it
    std::string_view reason;
    std::string_view advice;
};

constexpr Signature signatures[] = {
    {.bytes = "\x03\xD9\xA2\x9A"sv,
     .layout = "KeePass database",
     .reason = "the first four bytes of one",
     .advice = "open it in KeePass or KeePassXC, and export it as CSV from there"},
    {.bytes = "\x89PNG\r\n\x1A\n"sv, .layout = {}, .reason = "a picture", .advice = {}},
    {.bytes = "\xFF\xD8\xFF"sv, .layout = {}, .reason = "a picture", .advice = {}},
    {.bytes = "%PDF-"sv, .layout = {}, .reason = "a PDF document", .advice = {}},
    {.bytes = "\x1F\x8B"sv,
     .layout = {},
     .reason = "a compressed file",
     .advice = "unpack it, and look at what comes out"},
    {.bytes = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv,
     .layout = {},
     .reason = "a file of an office program",
     .advice = "if it is a spreadsheet, save it as CSV in UTF-8, with commas"},
};

} // namespace

std::optional<Detection> detectSignature(std::string_view beginning) {
    for (const Signature& signature : signatures) {
        if (beginning.starts_with(signature.bytes)) {
            return notRead(signature.layout, Confidence::certain, signature.reason,
                           signature.advice);
        }
    }
    return std::nullopt;
}

} // namespace Rellinor::Host
