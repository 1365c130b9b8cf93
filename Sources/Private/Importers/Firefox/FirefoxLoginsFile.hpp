#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "Private/Importers/Firefox/FirefoxEncryptedRecord.hpp"
#include "Private/Importers/ImportMemory.hpp"

namespace Rellinor {

/// One element of the list of logins in a "logins.json", with the texts that it has.
class FirefoxLoginEntry {
public:
    void set(EncryptedKeys key, std::string_view text) noexcept { _texts[indexOf(key)] = text; }

    /// The text of a field; absent if there is none or it is something other than a text.
    [[nodiscard]] std::optional<std::string_view> operator[](EncryptedKeys key) const noexcept {
        return _texts[indexOf(key)];
    }

private:
    static constexpr std::size_t indexOf(EncryptedKeys key) noexcept {
        return static_cast<std::size_t>(std::to_underlying(key));
    }

    std::array<std::optional<std::string_view>, allEncryptedKeys.size()> _texts;
};

/// The elements of the list under "logins" in the text of a "logins.json", in their order. Of two
/// members of one name the first counts.
///
/// None if the text is not JSON, has no object at its top, or has something other than a list of
/// objects under "logins": a single element of another kind is enough.
///
/// @param memory  receives the texts
/// @throws std::bad_alloc
[[nodiscard]] std::vector<FirefoxLoginEntry> entriesOfLoginsFile(std::string_view text,
                                                                 ImportMemory& memory);

} // namespace Rellinor
