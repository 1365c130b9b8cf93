#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Host/Detection/Detection.hpp"

// A recogniser for each kind of file; they are asked one after the other. Of a file of another kind
// a recogniser returns nothing, and the next is asked. Of one of its own kind it returns what it
// is, or, if it does not know that, an unknown file with the reason.

namespace Rellinor::Host {

/// How much of a file is looked at where its beginning is enough.
inline constexpr std::size_t sizeOfBeginning = std::size_t{64} * 1024;

/// Something that nothing here knows.
[[nodiscard]] inline Detection unknown(std::string_view reason, std::string_view advice = {}) {
    return {.layout = {},
            .source = std::nullopt,
            .confidence = Confidence::possible,
            .reason = std::string(reason),
            .advice = std::string(advice)};
}

/// Something that nothing here reads, though it is known; without a layout there is nothing to be
/// imported from it.
[[nodiscard]] inline Detection notRead(std::string_view layout, Confidence confidence,
                                       std::string_view reason, std::string_view advice) {
    Detection detection = unknown(reason, advice);
    detection.layout = layout;
    detection.confidence = confidence;
    return detection;
}

/// The same file as found, with something about it that keeps its source from reading it.
[[nodiscard]] inline Detection nearlyRead(Detection found, std::string_view hindrance,
                                          std::string_view advice) {
    found.layout += hindrance;
    if (found.source) {
        found.nearly = std::exchange(found.source, std::nullopt);
    }
    found.advice = advice;
    return found;
}

[[nodiscard]] Detection detectFolder(const std::filesystem::path& folder);

/// By the bytes that files of a kind begin with.
[[nodiscard]] std::optional<Detection> detectSignature(std::string_view beginning);

/// A ZIP archive, by the names of the files in it.
[[nodiscard]] std::optional<Detection> detectArchive(const std::string& path,
                                                     std::string_view beginning);

/// A database of SQLite, by its tables.
[[nodiscard]] std::optional<Detection> detectDatabase(const std::string& path,
                                                      std::string_view beginning);

/// An XML document or a web page.
[[nodiscard]] std::optional<Detection> detectMarkup(std::string_view beginning);

/// A CSV text, by the names of its columns.
[[nodiscard]] std::optional<Detection> detectNamedColumns(std::string_view beginning);

/// A JSON object or array, by the names of its members.
[[nodiscard]] std::optional<Detection> detectJSON(const std::string& path,
                                                  std::string_view beginning);

/// The lines of a 1PIF file.
///
/// @param lineEnd  what parts them
[[nodiscard]] std::optional<Detection>
detectRecordLines(const std::string& path, std::string_view beginning, char lineEnd = '\n');

/// A CSV text without names of columns, by what stands where.
[[nodiscard]] std::optional<Detection> detectPositions(std::string_view beginning);

/// A CSV text with something else than commas between the columns.
[[nodiscard]] std::optional<Detection> detectSeparators(std::string_view beginning);

/// A text whose lines end with carriage returns alone.
[[nodiscard]] std::optional<Detection> detectCarriageReturns(const std::string& path,
                                                             std::string_view beginning);

/// What keeps a file from being read as text, if something does.
[[nodiscard]] std::optional<Detection> detectEncoding(std::string_view beginning);

} // namespace Rellinor::Host
