#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "Host/Detection/Detection.hpp"

// One for each kind of file. What does not concern one, it leaves to the next: then it returns
// nothing, or else something unknown with what it knows of it.

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
