// The second door: what a file is, and reading it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <expected>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include <Rellinor/Rellinor.hpp>

#include "Private/Errors/ThrownError.hpp"
#include "Private/Reports/Reporter.hpp"
#include "Public/C/rellinorResult.hpp"

struct rellinor_detection {
    Rellinor::Detection detection;
};

namespace Rellinor {

namespace {

ExportFile inMemory(const void* bytes, std::size_t length, const char* name) {
    return ExportFile::inMemory(std::span(static_cast<const char*>(bytes), length), name);
}

/// Detects in a file that `open` gives.
rellinor_detection* detected(auto open) noexcept {
    try {
        auto detection = std::make_unique<rellinor_detection>();
        try {
            detection->detection = detect(open());
        } catch (const std::bad_alloc&) {
            return nullptr;
        } catch (...) {
            detection->detection.obstacle = thrownFailure().reason;
        }
        return detection.release();
    } catch (...) {
        return nullptr;
    }
}

/// What the caller knows of the options; the rest is 0.
rellinor_read_options known(const rellinor_read_options* options) noexcept {
    rellinor_read_options all{};
    if (options != nullptr) {
        std::memcpy(&all, options, std::min(options->size, sizeof all));
    }
    return all;
}

std::expected<ReadAs, NSError> readAs(const rellinor_read_options& options) noexcept {
    switch (options.as) {
    case RELLINOR_READ_AS_DETECTED:
        return {};
    case RELLINOR_READ_AS_LAYOUT:
        return layoutOf(options.layout);
    case RELLINOR_READ_AS_SOURCE:
        if (isSource(options.source)) {
            return static_cast<ImportSource>(options.source);
        }
        break;
    }
    return std::unexpected(unavailableSource);
}

ProgressHandler progressHandler(const rellinor_read_options& options) {
    if (options.on_progress == nullptr) {
        return {};
    }
    return [call = options.on_progress, context = options.progress_context](const Progress& p) {
        return call(p.done, p.total, context);
    };
}

ReadLimits limits(const rellinor_read_options& options) noexcept {
    const ReadLimits defaults;
    const auto limit = [](std::uint64_t value, std::uint64_t otherwise) {
        return value != 0 ? value : otherwise;
    };
    return {.largestFile = limit(options.largest_file, defaults.largestFile),
            .largestExpansion = limit(options.largest_expansion, defaults.largestExpansion),
            .mostRecords = limit(options.most_records, defaults.mostRecords)};
}

ImportedExport failed(const NSError& error, const ReadFailure& failure) {
    const ReadOptions options;
    Reporter reporter(options);
    reporter.fail(failure);
    return {.records = std::unexpected(error), .extras = {}, .report = reporter.take(false)};
}

/// Reads the file that `open` gives.
ImportedExport outcomeOf(auto open, const rellinor_read_options& options) {
    const auto as = readAs(options);
    if (!as) {
        return failed(as.error(), {.reason = FailureReason::other, .position = {}});
    }
    try {
        return readExport(
            open(), {.as = *as, .onProgress = progressHandler(options), .limits = limits(options)});
    } catch (...) {
        return failed(thrownError(), thrownFailure());
    }
}

rellinor_result* resultOf(auto open, const rellinor_read_options* options) noexcept {
    try {
        NewResult result;
        return result.with(outcomeOf(open, known(options)));
    } catch (...) {
        return nullptr;
    }
}

} // namespace

} // namespace Rellinor

rellinor_detection* rellinor_detect(const char* path) {
    return Rellinor::detected([&] { return Rellinor::ExportFile::atPath(path); });
}

rellinor_detection* rellinor_detect_memory(const void* bytes, size_t length, const char* name) {
    return Rellinor::detected([&] { return Rellinor::inMemory(bytes, length, name); });
}

void rellinor_detection_free(rellinor_detection* detection) {
    delete detection;
}

rellinor_layout rellinor_detection_layout(const rellinor_detection* detection) {
    return Rellinor::numberOf(detection->detection.layout);
}

rellinor_confidence rellinor_detection_confidence(const rellinor_detection* detection) {
    return static_cast<rellinor_confidence>(detection->detection.confidence);
}

bool rellinor_detection_source(const rellinor_detection* detection, rellinor_source* source) {
    const auto found = detection->detection.source;
    if (found && source != nullptr) {
        *source = static_cast<rellinor_source>(*found);
    }
    return found.has_value();
}

rellinor_failure_reason rellinor_detection_obstacle(const rellinor_detection* detection) {
    return static_cast<rellinor_failure_reason>(detection->detection.obstacle);
}

rellinor_text rellinor_detection_product(const rellinor_detection* detection) {
    return Rellinor::asC(detection->detection.product);
}

rellinor_text rellinor_detection_evidence(const rellinor_detection* detection) {
    return Rellinor::asC(detection->detection.evidence);
}

rellinor_text rellinor_detection_advice(const rellinor_detection* detection) {
    return Rellinor::asC(detection->detection.advice);
}

rellinor_result* rellinor_export_read(const char* path, const rellinor_read_options* options) {
    return Rellinor::resultOf([&] { return Rellinor::ExportFile::atPath(path); }, options);
}

rellinor_result* rellinor_export_read_memory(const void* bytes, size_t length, const char* name,
                                             const rellinor_read_options* options) {
    return Rellinor::resultOf([&] { return Rellinor::inMemory(bytes, length, name); }, options);
}
