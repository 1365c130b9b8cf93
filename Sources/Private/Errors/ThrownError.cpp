#include "Private/Errors/ThrownError.hpp"

#include <new>
#include <utility>

#include "Private/Extensions/String.hpp"

namespace Rellinor {

namespace {

constexpr NSError unexpected(UnexpectedError error) noexcept {
    return {"Rellinor.UnexpectedError", std::to_underlying(error)};
}

} // namespace

NSError thrownError() noexcept {
    try {
        throw;
    } catch (const NSError& error) {
        return error;
    } catch (const LibraryError& error) {
        return {error.domain(), error.code()};
    } catch (const TextError&) {
        return {"Rellinor.TextError", 1}; // Quirk: the message text is lost.
    } catch (const std::bad_alloc&) {
        return unexpected(UnexpectedError::outOfMemory);
    } catch (...) {
        return unexpected(UnexpectedError::other);
    }
}

ReadFailure thrownFailure() noexcept {
    try {
        throw;
    } catch (const LibraryError& error) {
        return error.failure();
    } catch (const std::bad_alloc&) {
        return {.reason = FailureReason::outOfMemory, .position = {}};
    } catch (...) {
        return {.reason = FailureReason::other, .position = {}};
    }
}

} // namespace Rellinor
