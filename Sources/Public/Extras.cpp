#include "Public/Extras.hpp"

#include "Private/Importers/RecordsBlock.hpp"

namespace Rellinor {

std::string_view identifier(ExtraKind kind) noexcept {
    switch (kind) {
        using enum ExtraKind;
    case oneTimePassword:
        return "oneTimePassword";
    case furtherURL:
        return "furtherURL";
    case furtherUserName:
        return "furtherUserName";
    case email:
        return "email";
    case phone:
        return "phone";
    case folder:
        return "folder";
    case tag:
        return "tag";
    case favourite:
        return "favourite";
    case archived:
        return "archived";
    case createdAt:
        return "createdAt";
    case modifiedAt:
        return "modifiedAt";
    case lastUsedAt:
        return "lastUsedAt";
    case customText:
        return "customText";
    case customSecret:
        return "customSecret";
    case other:
        return "other";
    }
    return {};
}

std::span<const Extra> Extras::ofPassword(std::size_t index) const noexcept {
    return _block ? _block->passwords.extras.at(index) : std::span<const Extra>();
}

std::span<const Extra> Extras::ofNote(std::size_t index) const noexcept {
    return _block ? _block->notes.extras.at(index) : std::span<const Extra>();
}

std::span<const Extra> Extras::ofCard(std::size_t index) const noexcept {
    return _block ? _block->cards.extras.at(index) : std::span<const Extra>();
}

} // namespace Rellinor
