#pragma once

#include <cstdint>
#include <iosfwd>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Host {

/// Whether passwords, card numbers, CVV and PIN are shown.
enum class Secrets : std::uint8_t {
    masked,
    revealed,
};

/// A secret as it is shown. The mask does not tell its length, only whether there is one.
[[nodiscard]] constexpr std::string_view shown(std::string_view secret, Secrets secrets) noexcept {
    return secrets == Secrets::revealed || secret.empty() ? secret : "********";
}

/// A way of showing the outcome of imports, one path after the other.
class RecordsFormat {
public:
    RecordsFormat(const RecordsFormat&) = delete;
    RecordsFormat& operator=(const RecordsFormat&) = delete;
    virtual ~RecordsFormat() = default;

    /// Shows the records that were imported from `path`.
    virtual void write(std::string_view path, const ImportedRecords& records,
                       std::ostream& out) = 0;

    /// Shows that nothing was imported, where the format has a place for that.
    virtual void writeFailure(const NSError& /*error*/, std::ostream& /*out*/) {}

    /// Shows what comes after the last path, where the format has something to say there.
    virtual void finish(std::ostream& /*out*/) {}

protected:
    RecordsFormat() = default;
};

} // namespace Rellinor::Host
