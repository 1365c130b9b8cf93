#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"

#include <cstddef>
#include <utility>

#include "Private/Importers/Firefox/EncryptedKeys.hpp"

namespace Rellinor {

namespace {

constexpr auto keptMembers = withOneMore(namesOfEncryptedKeys, "logins");

constexpr std::size_t keyOfLogins = namesOfEncryptedKeys.size();

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
