#include <algorithm>
#include <fstream>

#include "Host/Detection/Recognisers.hpp"
#include "Host/FileContents.hpp"

namespace Rellinor::Host {

namespace {

using namespace std::string_view_literals;

/// Where the name of a file stands in the header of its kind.
struct Header {
    std::string_view signature;
    std::size_t sizeAt;
    std::size_t nameAt;
};

constexpr Header inFront = {.signature = "PK\3\4"sv, .sizeAt = 26, .nameAt = 30};
constexpr Header atTheEnd = {.signature = "PK\1\2"sv, .sizeAt = 28, .nameAt = 46};

struct Archive {
    std::string_view member; ///< a file that tells it
    std::string_view layout;
    std::string_view reason;
    std::string_view advice;
};

constexpr Archive archives[] = {
    {.member = "export.data",
     .layout = "1Password export (1PUX)",
     .reason = "an archive with the file export.data",
     .advice = "export as CSV from 1Password instead, and have rellinor detect look at that"},
    {.member = "credentials.csv",
     .layout = "Dashlane export archive",
     .reason = "an archive with the file credentials.csv",
     .advice = "unpack it, and have rellinor detect look at credentials.csv"},
    {.member = "xl/workbook.xml",
     .layout = {},
     .reason = "a spreadsheet",
     .advice = "save it as CSV in UTF-8, with commas"},
    {.member = "content.xml",
     .layout = {},
     .reason = "a file of an office program",
     .advice = "if it is a spreadsheet, save it as CSV in UTF-8, with commas"},
};

std::size_t byteAt(std::string_view bytes, std::size_t position) noexcept {
    return static_cast<unsigned char>(bytes[position]);
}

/// Whether one of the headers in `bytes` is that of a file of this name.
bool names(std::string_view bytes, const Header& header, std::string_view name) noexcept {
    for (std::size_t at = bytes.find(header.signature); at != std::string_view::npos;
         at = bytes.find(header.signature, at + 1)) {
        const std::string_view rest = bytes.substr(at);
        if (rest.size() >= header.nameAt &&
            byteAt(rest, header.sizeAt) + byteAt(rest, header.sizeAt + 1) * 256 == name.size() &&
            rest.substr(header.nameAt).starts_with(name)) {
            return true;
        }
    }
    return false;
}

/// The last bytes of a file.
std::string endOf(const std::string& path) {
    std::ifstream file = openedFile(path);
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.tellg();
    if (size <= 0) {
        return {};
    }
    std::string bytes(
        static_cast<std::size_t>(std::min(size, static_cast<std::streamoff>(sizeOfBeginning))),
        '\0');
    file.seekg(size - static_cast<std::streamoff>(bytes.size()));
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

} // namespace

std::optional<Detection> detectArchive(const std::string& path, std::string_view beginning) {
    if (!beginning.starts_with(inFront.signature)) {
        return std::nullopt;
    }
    const std::string end = endOf(path);
    for (const Archive& archive : archives) {
        if (names(beginning, inFront, archive.member) || names(end, atTheEnd, archive.member)) {
            return notRead(archive.layout, Confidence::certain, archive.reason, archive.advice);
        }
    }
    return unknown("a ZIP archive", "unpack it, and look at what is in it");
}

} // namespace Rellinor::Host
