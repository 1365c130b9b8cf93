#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "Private/Importers/KeePass/KeePassRecord.hpp"
#include "Private/Proxies/CSVRecord.hpp"

namespace Rellinor {

/// The variants of KeePass, each with an export of its own.
enum class KeePassFork : std::uint8_t {
    keepass, ///< the classic layout
    keepassXC,
};

inline constexpr auto allKeepassKeys = csvHeaders(std::array{
    KeePassRecordKey::account,
    KeePassRecordKey::login,
    KeePassRecordKey::password,
    KeePassRecordKey::site,
    KeePassRecordKey::comments,
});

inline constexpr auto allKeepassXCKeys = csvHeaders(std::array{
    KeePassRecordKey::group,
    KeePassRecordKey::title,
    KeePassRecordKey::username,
    KeePassRecordKey::password,
    KeePassRecordKey::url,
    KeePassRecordKey::notes,
});

/// All columns of a fork's export, in their order.
[[nodiscard]] constexpr std::span<const CSVHeader> allKeys(KeePassFork fork) noexcept {
    using Keys = std::span<const CSVHeader>;
    return fork == KeePassFork::keepass ? Keys(allKeepassKeys) : Keys(allKeepassXCKeys);
}

inline constexpr auto requiredKeepassKeys = csvHeaders(std::array{
    KeePassRecordKey::site,
    KeePassRecordKey::login,
    KeePassRecordKey::password,
});

inline constexpr auto requiredKeepassXCKeys = csvHeaders(std::array{
    KeePassRecordKey::url,
    KeePassRecordKey::username,
    KeePassRecordKey::password,
});

/// The columns of a fork's export without which there is no login.
[[nodiscard]] constexpr std::span<const CSVHeader> requiredKeys(KeePassFork fork) noexcept {
    using Keys = std::span<const CSVHeader>;
    return fork == KeePassFork::keepass ? Keys(requiredKeepassKeys) : Keys(requiredKeepassXCKeys);
}

} // namespace Rellinor
