#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

#include <Rellinor/NSError.hpp>

#include "Private/Errors/ReadFailure.hpp"

namespace Rellinor {

/// An error type of the library's own, other than a plain text: it says how the host will see it.
class LibraryError : public std::exception {
public:
    /// The library's name, a point and the type's name, as a literal: "Rellinor.JSONError".
    [[nodiscard]] virtual std::string_view domain() const noexcept = 0;

    /// The ordinal of the case for an enumeration, 1 for a structure.
    [[nodiscard]] virtual std::int64_t code() const noexcept = 0;

    /// Why there is nothing, for a report.
    [[nodiscard]] virtual ReadFailure failure() const noexcept = 0;
};

/// Errors that no part of the library throws by itself, in the order of their codes.
enum class UnexpectedError : std::uint8_t {
    outOfMemory,
    other,
};

/// The error object for what is being thrown; to be called while handling an exception.
///
/// An `NSError` passes as it is, a plain text loses its words, and anything the library does not
/// know becomes an `UnexpectedError`. Does not allocate, so that it can tell of lack of memory.
[[nodiscard]] NSError thrownError() noexcept;

/// What is being thrown, for a report; to be called while handling an exception. A plain text tells
/// nothing.
[[nodiscard]] ReadFailure thrownFailure() noexcept;

} // namespace Rellinor
