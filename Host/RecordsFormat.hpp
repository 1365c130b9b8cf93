#pragma once

#include <cstdint>
#include <iosfwd>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Host {

/// Which door of the library the records come through.
enum class Door : std::uint8_t {
    first,  ///< the import of a source, quirks and all
    second, ///< the faithful reading
};

/// Whether passwords, card numbers, CVV, PIN and secrets among the extras are shown; through the
/// second door also notes, which hold such things too.
enum class Secrets : std::uint8_t {
    masked,
    revealed,
};

/// A secret as it is shown. The mask does not tell its length, only whether there is one.
[[nodiscard]] constexpr std::string_view shown(std::string_view secret, Secrets secrets) noexcept {
    return secrets == Secrets::revealed || secret.empty() ? secret : "********";
}

/// A note, or the content of one, as it is shown.
[[nodiscard]] constexpr std::string_view shownNote(std::string_view note, Secrets secrets,
                                                   Door door) noexcept {
    return door == Door::first ? note : shown(note, secrets);
}

/// Whether an extra is masked like a password.
[[nodiscard]] constexpr bool isSecret(ExtraKind kind) noexcept {
    return kind == ExtraKind::oneTimePassword || kind == ExtraKind::customSecret;
}

/// A way of showing the outcome of imports, one path after the other.
class RecordsFormat {
public:
    RecordsFormat(const RecordsFormat&) = delete;
    RecordsFormat& operator=(const RecordsFormat&) = delete;
    virtual ~RecordsFormat() = default;

    /// Shows the records that were imported from `path`.
    ///
    /// @param imported  has records
    virtual void write(std::string_view path, const ImportedExport& imported,
                       std::ostream& out) = 0;

    /// Shows that nothing was imported, where the format has a place for that.
    ///
    /// @param failed  has no records
    virtual void writeFailure(const ImportedExport& /*failed*/, std::ostream& /*out*/) {}

    /// Shows what comes after the last path, where the format has something to say there.
    virtual void finish(std::ostream& /*out*/) {}

protected:
    RecordsFormat() = default;
};

} // namespace Rellinor::Host
