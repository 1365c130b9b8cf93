#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "Private/Proxies/CSVFileProxy.hpp"
#include "Private/Proxies/JSONFileProxy.hpp"
#include "Private/Proxies/PIFLines.hpp"
#include "Private/Reports/LineCounter.hpp"
#include "Private/Reports/Reporter.hpp"
#include "Private/Text/UTF16.hpp"

namespace Rellinor {

/// How many bytes a file may have.
[[nodiscard]] inline std::uint64_t largestFileFor(const Reporter* reporter) noexcept {
    return reporter != nullptr ? reporter->limits().largestFile : anyNumberOfBytes;
}

/// A text that was UTF-16. Tells the reporter what of it had to be repaired.
///
/// @throws std::bad_alloc
[[nodiscard]] inline DecodedUTF16 decodedUTF16(std::string_view text, Reporter& reporter) {
    DecodedUTF16 decoded = decodedUTF16(text);
    if (decoded.replaced > 0) {
        reporter.foundMany(FindingKind::repairedText, {}, decoded.replaced);
    }
    return decoded;
}

/// Tells the reporter, which may be null, that positions are offsets in the text of a CSV file, and
/// places its lines.
inline void reportLines(CSVFileProxy& file, Reporter* reporter) {
    if (reporter != nullptr) {
        reporter->setPlaces(PlaceUnit::line, LineCounter(file.text()));
        reporter->expect(file.text().size());
    }
}

/// Tells the reporter, which may be null, why a CSV file gives no rows.
inline void reportFailure(const CSVFileProxy& file, FailureReason otherwise, Reporter* reporter) {
    if (reporter != nullptr) {
        const bool isText = file.failure() == FailureReason::none;
        reporter->fail(isText ? otherwise : file.failure());
    }
}

/// Tells the reporter, which may be null, why a JSON file gives nothing.
inline void reportFailure(const JSONFileProxy& file, Reporter* reporter) {
    if (reporter != nullptr) {
        reporter->setPlaces(PlaceUnit::line, LineCounter(file.text()));
        reporter->fail(file.failure());
    }
}

/// Tells the reporter why a text gives nothing, with the line where that shows.
inline void reportFailure(const ReadFailure& failure, std::string_view text, Reporter& reporter) {
    reporter.setPlaces(PlaceUnit::line, LineCounter(text));
    reporter.fail(failure);
    reporter.setPlaces(PlaceUnit::line); // the text may go
}

/// Tells the reporter, which may be null, that positions are the numbers of records in a 1PIF file,
/// and places its lines. Returns where these are to be kept; null without a reporter.
[[nodiscard]] inline PIFLines* reportPIFLines(Reporter* reporter) {
    if (reporter == nullptr) {
        return nullptr;
    }
    const auto lines = std::make_shared<PIFLines>();
    reporter->setPlaces(PlaceUnit::line,
                        [lines](std::uint64_t record) { return lines->lineOf(record); });
    return lines.get();
}

} // namespace Rellinor
