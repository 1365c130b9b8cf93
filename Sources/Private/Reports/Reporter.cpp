#include "Private/Reports/Reporter.hpp"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "Private/Errors/ReadError.hpp"

namespace Rellinor {

namespace {

constexpr std::size_t mostPlaces = 1000;
constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();

/// The entry of a list that has this code, field and member; a new one if there is none.
template <typename Entry, typename Code>
Entry& entryOf(std::vector<Entry>& entries, Code Entry::* code, Code wanted, std::string_view field,
               std::string_view member) {
    const auto found = std::ranges::find_if(entries, [&](const Entry& entry) {
        return entry.*code == wanted && entry.field == field && entry.places.member == member;
    });
    if (found != entries.end()) {
        return *found;
    }
    Entry& entry = entries.emplace_back();
    entry.*code = wanted;
    entry.field = field;
    entry.places.member = member;
    return entry;
}

} // namespace

void Reporter::setPlaces(PlaceUnit unit, std::function<std::uint64_t(std::uint64_t)> placeOf) {
    _report._placeUnit = unit;
    _placeOf = std::move(placeOf);
}

void Reporter::expect(std::uint64_t lastPosition) noexcept {
    _lastPosition = lastPosition;
    _nextProgress = _options.onProgress ? 0 : never;
}

void Reporter::tellProgress(std::uint64_t position) {
    constexpr std::uint64_t unknownStep = 4096; // between two looks at the clock
    constexpr std::uint64_t steps = 100;
    constexpr std::chrono::milliseconds pause{50};

    if (!_options.onProgress) {
        _nextProgress = never;
        return;
    }
    _nextProgress = position + (_lastPosition == 0 ? unknownStep : _lastPosition / steps + 1);
    const auto now = std::chrono::steady_clock::now();
    if (_lastPosition == 0 && now - _lastProgress < pause) {
        return;
    }
    _lastProgress = now;
    bool goesOn = false;
    try {
        goesOn = _options.onProgress({.done = position, .total = _lastPosition});
    } catch (...) {
        _thrownByHost = std::current_exception();
    }
    if (!goesOn) {
        fail(FailureReason::cancelled);
        throw ReadError(FailureReason::cancelled);
    }
}

void Reporter::failForTooMany() {
    --_report._recordCount;
    fail(FailureReason::tooLarge);
    throw ReadError(FailureReason::tooLarge);
}

void Reporter::leftOut(LeftOutReason reason, std::string_view field) noexcept {
    try {
        add(entryOf(_report._leftOut, &LeftOut::reason, reason, field, _member).places, _position);
    } catch (const std::bad_alloc&) {
        _report._isComplete = false;
    }
}

void Reporter::found(FindingKind kind, std::string_view field, std::uint64_t position) noexcept {
    try {
        add(placesOf(kind, field), position);
    } catch (const std::bad_alloc&) {
        _report._isComplete = false;
    }
}

void Reporter::foundMany(FindingKind kind, std::string_view field, std::uint64_t count) noexcept {
    try {
        placesOf(kind, field).count += count;
    } catch (const std::bad_alloc&) {
        _report._isComplete = false;
    }
}

void Reporter::unread(std::string_view part, std::uint64_t count) noexcept {
    const auto found = std::ranges::find(_report._unread, part, &Unread::part);
    if (found != _report._unread.end()) {
        found->count += count;
        return;
    }
    try {
        _report._unread.push_back({.part = part, .count = count});
    } catch (const std::bad_alloc&) {
        _report._isComplete = false;
    }
}

void Reporter::fail(const ReadFailure& failure, std::string_view field) noexcept {
    if (_report._failure.reason != FailureReason::none) {
        return;
    }
    _report._failure = {
        .reason = failure.reason, .place = 0, .field = field.empty() ? _member : field};
    try {
        _report._failure.place = failure.position ? placeOf(*failure.position) : 0;
    } catch (const std::bad_alloc&) {
        _report._isComplete = false;
    }
}

void Reporter::fail(FailureReason reason, std::string_view field) noexcept {
    fail(ReadFailure{.reason = reason, .position = {}}, field);
}

ImportReport Reporter::take(bool hasRecords) {
    if (_thrownByHost) {
        std::rethrow_exception(_thrownByHost);
    }
    if (!hasRecords) {
        _report._recordCount = 0;
        _report._leftOut.clear();
    }
    return std::move(_report);
}

std::uint64_t Reporter::placeOf(std::uint64_t position) const {
    return _placeOf ? _placeOf(position) : position;
}

void Reporter::add(Places& places, std::uint64_t position) {
    ++places.count;
    if (places.first.size() < mostPlaces) {
        places.first.push_back(placeOf(position));
    }
}

Places& Reporter::placesOf(FindingKind kind, std::string_view field) {
    return entryOf(_report._findings, &Finding::kind, kind, field, _member).places;
}

} // namespace Rellinor
