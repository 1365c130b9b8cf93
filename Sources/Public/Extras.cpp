#include "Public/Extras.hpp"

#include "Private/Importers/RecordsBlock.hpp"

namespace Rellinor {

namespace {

template <typename Record>
std::span<const Extra> extrasOf(const std::shared_ptr<const RecordsBlock>& block,
                                RecordsBlock::List<Record> RecordsBlock::* list,
                                std::size_t index) noexcept {
    return block != nullptr ? (*block.*list).extras[index] : std::span<const Extra>();
}

} // namespace

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
    return extrasOf(_block, &RecordsBlock::passwords, index);
}

std::span<const Extra> Extras::ofNote(std::size_t index) const noexcept {
    return extrasOf(_block, &RecordsBlock::notes, index);
}

std::span<const Extra> Extras::ofCard(std::size_t index) const noexcept {
    return extrasOf(_block, &RecordsBlock::cards, index);
}

} // namespace Rellinor
