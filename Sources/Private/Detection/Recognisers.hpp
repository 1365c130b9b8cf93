#pragma once

#include <optional>
#include <string_view>

#include <Rellinor/Detection.hpp>
#include <Rellinor/URL.hpp>

#include "Private/Detection/Beginning.hpp"
#include "Private/Detection/BuiltIn.hpp"
#include "Private/Proxies/FileParts.hpp"

// A recogniser for each kind of file; they are asked one after the other. Of a file of another kind
// a recogniser returns nothing, and the next is asked. Of one of its own kind it returns what it
// is, or, if it does not know that, an unknown file with the reason.

namespace Rellinor {

/// How much of a file is looked at where its beginning is enough.
inline constexpr std::size_t sizeOfBeginning = std::size_t{64} * 1024;

inline constexpr std::string_view saveAsUTF8 = "save the file as UTF-8";

/// Something that is not read, though it may be known whose it is.
[[nodiscard]] inline Detection obstructed(FailureReason obstacle, std::string_view evidence = {},
                                          std::string_view advice = {}) noexcept {
    Detection detection;
    detection.obstacle = obstacle;
    detection.evidence = evidence;
    detection.advice = advice;
    return detection;
}

/// Something that nothing here knows.
[[nodiscard]] inline Detection unknown(std::string_view evidence,
                                       std::string_view advice = {}) noexcept {
    return obstructed(FailureReason::unknown, evidence, advice);
}

/// A layout, with the obstacle that it is not built in if that is so.
[[nodiscard]] inline Detection recognised(Layout layout, Confidence confidence,
                                          std::string_view product,
                                          std::string_view evidence) noexcept {
    Detection detection;
    detection.layout = layout;
    detection.confidence = confidence;
    detection.product = product;
    detection.evidence = evidence;
    if (!isRead(layout)) {
        detection.obstacle = FailureReason::notBuiltIn;
    }
    return detection;
}

/// The same file, which something keeps from being read.
[[nodiscard]] inline Detection obstructed(Detection found, FailureReason obstacle,
                                          std::string_view advice) noexcept {
    found.obstacle = obstacle;
    found.advice = advice;
    found.source.reset();
    return found;
}

/// A folder, by what is in it.
///
/// @throws std::bad_alloc
[[nodiscard]] Detection detectFolder(const URL& folder);

/// By the bytes that files of a kind begin with.
[[nodiscard]] std::optional<Detection> detectSignature(std::string_view beginning) noexcept;

/// By the name, of what its contents do not tell.
[[nodiscard]] std::optional<Detection> detectName(std::string_view name) noexcept;

/// A ZIP archive, by the names of its members.
///
/// @throws std::bad_alloc
[[nodiscard]] std::optional<Detection> detectArchive(const FileParts& file,
                                                     std::string_view beginning);

/// A database of SQLite, by the tables that its schema names.
///
/// @throws std::bad_alloc
[[nodiscard]] std::optional<Detection> detectDatabase(const FileParts& file,
                                                      std::string_view beginning);

/// Bytes as a text, or what is known of those that are none.
///
/// @throws std::bad_alloc
[[nodiscard]] Detection detectEncodedText(Beginning beginning);

/// A text in UTF-8, or nearly so.
///
/// @throws std::bad_alloc
[[nodiscard]] Detection detectText(Beginning beginning);

/// An XML document or a web page.
[[nodiscard]] std::optional<Detection> detectMarkup(std::string_view text) noexcept;

/// A JSON object, by the names of its members.
[[nodiscard]] std::optional<Detection> detectJSON(std::string_view text) noexcept;

/// The lines of a 1PIF file.
[[nodiscard]] std::optional<Detection> detectRecordLines(std::string_view text) noexcept;

/// A CSV text, by the names of its columns.
///
/// @throws std::bad_alloc
[[nodiscard]] std::optional<Detection> detectColumns(Beginning beginning);

/// A CSV text without names of columns, by what stands where. No more than possible.
///
/// @throws std::bad_alloc
[[nodiscard]] std::optional<Detection> detectPositions(Beginning beginning);

} // namespace Rellinor
