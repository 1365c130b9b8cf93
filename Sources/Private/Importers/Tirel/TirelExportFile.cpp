#include "Private/Importers/Tirel/TirelExportFile.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace Rellinor {

namespace {

using Member = TirelExportMember;
using enum TirelRecordType;

/// A member of an object, and the kind that its value must have.
struct Requirement {
    Member member = Member::logins;
    JSONKind kind = JSONKind::null;
    bool isOptional = false; ///< the member may be missing, or its value null
};

constexpr auto requirementsOfLogin = std::array{
    Requirement{.member = Member::color, .kind = JSONKind::integer},
    Requirement{.member = Member::custName, .kind = JSONKind::string, .isOptional = true},
    Requirement{.member = Member::loginName, .kind = JSONKind::string},
    Requirement{.member = Member::note, .kind = JSONKind::string},
    Requirement{.member = Member::pwd, .kind = JSONKind::string},
    Requirement{.member = Member::pwdChange, .kind = JSONKind::integer, .isOptional = true},
    Requirement{.member = Member::url, .kind = JSONKind::string},
};

constexpr auto requirementsOfNote = std::array{
    Requirement{.member = Member::color, .kind = JSONKind::integer},
    Requirement{.member = Member::label, .kind = JSONKind::string},
    Requirement{.member = Member::text, .kind = JSONKind::string},
};

constexpr auto requirementsOfCard = std::array{
    Requirement{.member = Member::cardNumber, .kind = JSONKind::string},
    Requirement{.member = Member::custName, .kind = JSONKind::string},
    Requirement{.member = Member::holderName, .kind = JSONKind::string},
    Requirement{.member = Member::cvv, .kind = JSONKind::string},
    Requirement{.member = Member::pin, .kind = JSONKind::string},
    Requirement{.member = Member::note, .kind = JSONKind::string},
    Requirement{.member = Member::expirationDate, .kind = JSONKind::object},
};

constexpr auto requirementsOfExpirationDate = std::array{
    Requirement{.member = Member::day, .kind = JSONKind::integer},
    Requirement{.member = Member::month, .kind = JSONKind::integer},
    Requirement{.member = Member::year, .kind = JSONKind::integer},
};

/// The requirements on one type of object.
///
/// A set of members is a word with one bit for each member, so that one walk over an object checks
/// all requirements, in whatever order the members stand.
class Shape {
public:
    consteval explicit Shape(std::span<const Requirement> requirements) noexcept {
        for (const Requirement& requirement : requirements) {
            const std::size_t member = indexOf(requirement.member);
            _kinds[member] = requirement.kind;
            _known |= bitOf(member);
            _optional |= requirement.isOptional ? bitOf(member) : 0;
        }
    }

    /// Whether an object meets all requirements. Of several members of one name the first counts.
    [[nodiscard]] bool fits(const JSONObject& object) const noexcept {
        std::uint32_t seen = 0;
        std::uint32_t fitting = _optional;
        object.forEach([&](std::size_t member, const JSONValue& value) {
            const std::uint32_t bit = bitOf(member);
            const bool isFirst = (seen & bit) == 0; // of its name
            const bool isOfKind = value.kind() == _kinds[member];
            const bool isAbsent = value.isNull() && (_optional & bit) != 0;
            seen |= bit;
            fitting &= isFirst ? ~bit : ~0U;
            fitting |= isFirst && (isOfKind || isAbsent) ? bit : 0;
        });
        return (fitting & _known) == _known;
    }

private:
    static constexpr std::uint32_t bitOf(std::size_t member) noexcept { return 1U << member; }

    static_assert(namesOfTirelExportMembers.size() <= 32);

    std::array<JSONKind, namesOfTirelExportMembers.size()> _kinds{}; // by member
    // Sets of members.
    std::uint32_t _known = 0;
    std::uint32_t _optional = 0;
};

constexpr Shape shapeOfLogin(requirementsOfLogin);
constexpr Shape shapeOfNote(requirementsOfNote);
constexpr Shape shapeOfCard(requirementsOfCard);
constexpr Shape shapeOfExpirationDate(requirementsOfExpirationDate);

bool isLogin(const JSONObject& entry) noexcept {
    return shapeOfLogin.fits(entry);
}

bool isNote(const JSONObject& entry) noexcept {
    return shapeOfNote.fits(entry);
}

bool isCard(const JSONObject& entry) noexcept {
    return shapeOfCard.fits(entry) &&
           shapeOfExpirationDate.fits(entry.object(Member::expirationDate).value());
}

/// The entries of a list. Absent if the file has no such list, or if an entry of the list is not of
/// the type.
std::optional<JSONObjects> entriesOf(const JSONObject& top, Member list,
                                     bool (*isOfType)(const JSONObject&) noexcept) {
    const auto entries = top.objects(list);
    return entries && std::ranges::all_of(*entries, isOfType) ? entries : std::nullopt;
}

} // namespace

std::optional<TirelExportFile> TirelExportFile::decoded(JSONDocument document) {
    const auto top = document.root().object();
    const auto logins = top ? entriesOf(*top, Member::logins, isLogin) : std::nullopt;
    const auto notes = logins ? entriesOf(*top, Member::notes, isNote) : std::nullopt;
    const auto cards = notes ? entriesOf(*top, Member::cards, isCard) : std::nullopt;
    if (!cards) {
        return std::nullopt;
    }
    return TirelExportFile(std::move(document), {{
                                                    {.type = webPassword, .entries = *logins},
                                                    {.type = secureNote, .entries = *notes},
                                                    {.type = creditCard, .entries = *cards},
                                                }});
}

} // namespace Rellinor
