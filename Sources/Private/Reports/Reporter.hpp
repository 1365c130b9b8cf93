#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <string_view>

#include <Rellinor/ExportReader.hpp>

#include "Private/Errors/ReadFailure.hpp"

namespace Rellinor {

/// Writes the report of one import as the readers go, and tells the host how far the import has
/// come. Readers and importers have a pointer to it that is null if nobody asks for a report.
///
/// A position is whatever a reader counts by: an offset in a text, or a number from 1 on. The
/// reader says how positions become places if they are not places themselves.
class Reporter {
public:
    /// @param options  outlives this
    explicit Reporter(const ReadOptions& options) noexcept : _options(options) {}

    Reporter(const Reporter&) = delete;
    Reporter& operator=(const Reporter&) = delete;
    ~Reporter() = default;

    [[nodiscard]] const ReadLimits& limits() const noexcept { return _options.limits; }

    void setLayout(Layout layout) noexcept { _report._layout = layout; }

    /// Says what positions are.
    ///
    /// @param placeOf  the place of a position, if that is another number; asked with positions
    /// that
    ///                 hardly ever decrease
    void setPlaces(PlaceUnit unit, std::function<std::uint64_t(std::uint64_t)> placeOf = {});

    /// Says how far positions go; 0 if that is not known.
    void expect(std::uint64_t lastPosition) noexcept;

    /// Comes to one of the files of an archive or folder, or out of it with an empty name. What is
    /// told meanwhile is told of that file.
    ///
    /// @param name  a literal
    void enterMember(std::string_view name) noexcept { _member = name; }

    /// Comes to a position, which may be told to the host.
    ///
    /// @throws ReadError  the host does not go on
    void advanceTo(std::uint64_t position) {
        if (position >= _nextProgress) {
            tellProgress(position);
        }
    }

    /// Comes to the next raw record. What follows is told of it unless it has a position of its
    /// own.
    ///
    /// @throws ReadError  the host does not go on, or there are too many records
    void beginRecord(std::uint64_t position) {
        _position = position;
        ++_report._recordCount;
        if (_report._recordCount > limits().mostRecords) {
            failForTooMany();
        }
        advanceTo(position);
    }

    // What is told of the current raw record, or of a position. Lack of memory makes the report
    // incomplete, and no more.

    void leftOut(LeftOutReason reason, std::string_view field) noexcept;

    void found(FindingKind kind, std::string_view field) noexcept { found(kind, field, _position); }

    void found(FindingKind kind, std::string_view field, std::uint64_t position) noexcept;

    /// Tells of something that is found so often, at no place in particular.
    void foundMany(FindingKind kind, std::string_view field, std::uint64_t count) noexcept;

    /// Tells of a part that never arrives.
    void unread(std::string_view part, std::uint64_t count = 1) noexcept;

    /// Tells why there is nothing. The first reason counts: it comes from where the failure arose.
    void fail(const ReadFailure& failure, std::string_view field = {}) noexcept;
    void fail(FailureReason reason, std::string_view field = {}) noexcept;

    /// The report. Throws what the host's own function has thrown.
    ///
    /// @param hasRecords  whether records are delivered; raw records count for nothing without them
    [[nodiscard]] ImportReport take(bool hasRecords);

private:
    void tellProgress(std::uint64_t position);
    [[noreturn]] void failForTooMany();
    [[nodiscard]] std::uint64_t placeOf(std::uint64_t position) const;
    void add(Places& places, std::uint64_t position);
    [[nodiscard]] Places& placesOf(FindingKind kind, std::string_view field);

    const ReadOptions& _options;
    std::string_view _member; // of an archive or folder
    ImportReport _report;
    std::function<std::uint64_t(std::uint64_t)> _placeOf;
    std::uint64_t _position = 0;
    std::uint64_t _lastPosition = 0;
    std::uint64_t _nextProgress = 0;
    std::chrono::steady_clock::time_point _lastProgress;
    std::exception_ptr _thrownByHost;
};

} // namespace Rellinor
