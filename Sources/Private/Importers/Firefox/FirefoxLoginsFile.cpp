#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "Private/Importers/Firefox/FirefoxEncryptedRecord.hpp"

namespace Rellinor {

namespace {

constexpr std::array<std::string_view, 4> keptMembers = {
    rawValue(EncryptedKeys::host),
    rawValue(EncryptedKeys::user),
    rawValue(EncryptedKeys::password),
    "logins",
};

constexpr std::size_t keyOfLogins = 3;

} // namespace

const JSONKeys FirefoxLoginsFile::keys = keptMembers;

std::optional<FirefoxLoginsFile> FirefoxLoginsFile::decoded(JSONDocument document) noexcept {
    const auto top = document.root().object();
    const auto logins = top ? top->valueAt(keyOfLogins) : std::nullopt;
    const auto list = logins ? logins->objects() : std::nullopt;
    if (!list) {
        return std::nullopt;
    }
    return FirefoxLoginsFile(std::move(document), *list);
}

} // namespace Rellinor
