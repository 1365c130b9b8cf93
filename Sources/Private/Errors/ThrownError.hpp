#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

#include <Rellinor/NSError.hpp>

#include "Private/Errors/ReadFailure.hpp"

namespace Rellinor {

/// An error of the library's own that is more than a plain text. It knows what the host sees of it.
class LibraryError : public std::exception {
public:
    /// The domain of the `NSError`, a literal such as "Rellinor.JSONError": the library's name, a
    /// point and the name of the type.
    [[nodiscard]] virtual std::string_view domain() const noexcept = 0;

    /// The code of the `NSError`: the ordinal of the case if the error is one of several cases, and
    /// 1 if there is only one.
    [[nodiscard]] virtual std::int64_t code() const noexcept = 0;

    /// Why there is nothing, for a report.
    [[nodiscard]] virtual ReadFailure failure() const noexcept = 0;
};

/// Errors that come from below the library, in the order of their codes.
enum class UnexpectedError : std::uint8_t {
    outOfMemory,
    other,
};

/// The `NSError` for the exception that is being handled.
///
/// An `NSError` passes unchanged. A plain text becomes an error without its words. An exception
/// that is not the library's becomes an `UnexpectedError`. The function does not allocate: a lack
/// of memory can be told.
[[nodiscard]] NSError thrownError() noexcept;

/// The reason, for a report, of the exception that is being handled. A plain text gives
/// `FailureReason::other`.
[[nodiscard]] ReadFailure thrownFailure() noexcept;

} // namespace Rellinor
