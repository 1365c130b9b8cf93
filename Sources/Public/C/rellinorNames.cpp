// The numbers of C are those of C++, and so are their names and sentences.

#include "Public/C/rellinorResult.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor {

namespace {

static_assert(RELLINOR_SOURCE_CHROME == std::to_underlying(ImportSource::chrome));
static_assert(RELLINOR_SOURCE_LAST_PASS == std::to_underlying(ImportSource::lastPass));
static_assert(RELLINOR_SOURCE_DASHLANE == std::to_underlying(ImportSource::dashlane));
static_assert(RELLINOR_SOURCE_ONE_PASSWORD == std::to_underlying(ImportSource::onePassword));
static_assert(RELLINOR_SOURCE_TIREL == std::to_underlying(ImportSource::tirel));
static_assert(RELLINOR_SOURCE_KEE_PASS == std::to_underlying(ImportSource::keePass));
static_assert(RELLINOR_SOURCE_KEE_PASS_XC == std::to_underlying(ImportSource::keePassXC));
static_assert(RELLINOR_SOURCE_FIREFOX == std::to_underlying(ImportSource::firefox));

static_assert(RELLINOR_CONFIDENCE_NONE == std::to_underlying(Confidence::none));
static_assert(RELLINOR_CONFIDENCE_POSSIBLE == std::to_underlying(Confidence::possible));
static_assert(RELLINOR_CONFIDENCE_LIKELY == std::to_underlying(Confidence::likely));
static_assert(RELLINOR_CONFIDENCE_CERTAIN == std::to_underlying(Confidence::certain));
static_assert(RELLINOR_FAILURE_NONE == std::to_underlying(FailureReason::none));
static_assert(RELLINOR_FAILURE_MISSING == std::to_underlying(FailureReason::missing));
static_assert(RELLINOR_FAILURE_NO_PERMISSION == std::to_underlying(FailureReason::noPermission));
static_assert(RELLINOR_FAILURE_NOT_A_FILE == std::to_underlying(FailureReason::notAFile));
static_assert(RELLINOR_FAILURE_UNREADABLE == std::to_underlying(FailureReason::unreadable));
static_assert(RELLINOR_FAILURE_NOT_UTF8 == std::to_underlying(FailureReason::notUTF8));
static_assert(RELLINOR_FAILURE_UTF16 == std::to_underlying(FailureReason::utf16));
static_assert(RELLINOR_FAILURE_NO_ROWS == std::to_underlying(FailureReason::noRows));
static_assert(RELLINOR_FAILURE_WRONG_COLUMNS == std::to_underlying(FailureReason::wrongColumns));
static_assert(RELLINOR_FAILURE_NOT_JSON == std::to_underlying(FailureReason::notJSON));
static_assert(RELLINOR_FAILURE_CUT_SHORT == std::to_underlying(FailureReason::cutShort));
static_assert(RELLINOR_FAILURE_NESTED_TOO_DEEP == std::to_underlying(FailureReason::nestedTooDeep));
static_assert(RELLINOR_FAILURE_WRONG_SHAPE == std::to_underlying(FailureReason::wrongShape));
static_assert(RELLINOR_FAILURE_LOCKED == std::to_underlying(FailureReason::locked));
static_assert(RELLINOR_FAILURE_ENCRYPTED == std::to_underlying(FailureReason::encrypted));
static_assert(RELLINOR_FAILURE_REFUSED_FOR_ITS_COST ==
              std::to_underlying(FailureReason::refusedForItsCost));
static_assert(RELLINOR_FAILURE_TOO_LARGE == std::to_underlying(FailureReason::tooLarge));
static_assert(RELLINOR_FAILURE_CANCELLED == std::to_underlying(FailureReason::cancelled));
static_assert(RELLINOR_FAILURE_OUT_OF_MEMORY == std::to_underlying(FailureReason::outOfMemory));
static_assert(RELLINOR_FAILURE_UNKNOWN == std::to_underlying(FailureReason::unknown));
static_assert(RELLINOR_FAILURE_NOT_READ == std::to_underlying(FailureReason::notRead));
static_assert(RELLINOR_FAILURE_NOT_BUILT_IN == std::to_underlying(FailureReason::notBuiltIn));
static_assert(RELLINOR_FAILURE_DAMAGED == std::to_underlying(FailureReason::damaged));
static_assert(RELLINOR_FAILURE_NO_STORE == std::to_underlying(FailureReason::noStore));
static_assert(RELLINOR_FAILURE_OTHER == std::to_underlying(FailureReason::other));
static_assert(RELLINOR_EXTRA_ONE_TIME_PASSWORD == std::to_underlying(ExtraKind::oneTimePassword));
static_assert(RELLINOR_EXTRA_FURTHER_URL == std::to_underlying(ExtraKind::furtherURL));
static_assert(RELLINOR_EXTRA_FURTHER_USER_NAME == std::to_underlying(ExtraKind::furtherUserName));
static_assert(RELLINOR_EXTRA_EMAIL == std::to_underlying(ExtraKind::email));
static_assert(RELLINOR_EXTRA_PHONE == std::to_underlying(ExtraKind::phone));
static_assert(RELLINOR_EXTRA_FOLDER == std::to_underlying(ExtraKind::folder));
static_assert(RELLINOR_EXTRA_TAG == std::to_underlying(ExtraKind::tag));
static_assert(RELLINOR_EXTRA_FAVOURITE == std::to_underlying(ExtraKind::favourite));
static_assert(RELLINOR_EXTRA_ARCHIVED == std::to_underlying(ExtraKind::archived));
static_assert(RELLINOR_EXTRA_CREATED_AT == std::to_underlying(ExtraKind::createdAt));
static_assert(RELLINOR_EXTRA_MODIFIED_AT == std::to_underlying(ExtraKind::modifiedAt));
static_assert(RELLINOR_EXTRA_LAST_USED_AT == std::to_underlying(ExtraKind::lastUsedAt));
static_assert(RELLINOR_EXTRA_CUSTOM_TEXT == std::to_underlying(ExtraKind::customText));
static_assert(RELLINOR_EXTRA_CUSTOM_SECRET == std::to_underlying(ExtraKind::customSecret));
static_assert(RELLINOR_EXTRA_OTHER == std::to_underlying(ExtraKind::other));
static_assert(RELLINOR_PLACE_LINE == std::to_underlying(PlaceUnit::line));
static_assert(RELLINOR_PLACE_ROW == std::to_underlying(PlaceUnit::row));
static_assert(RELLINOR_PLACE_RECORD == std::to_underlying(PlaceUnit::record));
static_assert(RELLINOR_LEFT_OUT_MISSING_FIELD == std::to_underlying(LeftOutReason::missingField));
static_assert(RELLINOR_LEFT_OUT_EMPTY == std::to_underlying(LeftOutReason::empty));
static_assert(RELLINOR_LEFT_OUT_OTHER_KIND == std::to_underlying(LeftOutReason::otherKind));
static_assert(RELLINOR_LEFT_OUT_FIELD_OF_OTHER_TYPE ==
              std::to_underlying(LeftOutReason::fieldOfOtherType));
static_assert(RELLINOR_LEFT_OUT_TOO_FEW_CELLS == std::to_underlying(LeftOutReason::tooFewCells));
static_assert(RELLINOR_LEFT_OUT_BRACED_IDENTIFIER ==
              std::to_underlying(LeftOutReason::bracedIdentifier));
static_assert(RELLINOR_LEFT_OUT_PLACEHOLDER == std::to_underlying(LeftOutReason::placeholder));
static_assert(RELLINOR_LEFT_OUT_TRASHED == std::to_underlying(LeftOutReason::trashed));
static_assert(RELLINOR_LEFT_OUT_BROWSER_ACCOUNT ==
              std::to_underlying(LeftOutReason::browserAccount));
static_assert(RELLINOR_FINDING_ARRIVED_AS_NOTE == std::to_underlying(FindingKind::arrivedAsNote));
static_assert(RELLINOR_FINDING_STILL_ENCRYPTED == std::to_underlying(FindingKind::stillEncrypted));
static_assert(RELLINOR_FINDING_DOUBLED_QUOTE == std::to_underlying(FindingKind::doubledQuote));
static_assert(RELLINOR_FINDING_LOST_QUOTE == std::to_underlying(FindingKind::lostQuote));
static_assert(RELLINOR_FINDING_RUN_ON_CELL == std::to_underlying(FindingKind::runOnCell));
static_assert(RELLINOR_FINDING_STRAY_QUOTE == std::to_underlying(FindingKind::strayQuote));
static_assert(RELLINOR_FINDING_JOINED_LINES == std::to_underlying(FindingKind::joinedLines));
static_assert(RELLINOR_FINDING_SHORT_ROW == std::to_underlying(FindingKind::shortRow));
static_assert(RELLINOR_FINDING_LONG_ROW == std::to_underlying(FindingKind::longRow));
static_assert(RELLINOR_FINDING_UNREADABLE_DATE == std::to_underlying(FindingKind::unreadableDate));
static_assert(RELLINOR_FINDING_VALUE_OF_OTHER_TYPE ==
              std::to_underlying(FindingKind::valueOfOtherType));
static_assert(RELLINOR_FINDING_HTML_ENTITY == std::to_underlying(FindingKind::htmlEntity));
static_assert(RELLINOR_FINDING_TYPED_NOTE == std::to_underlying(FindingKind::typedNote));
static_assert(RELLINOR_FINDING_REPEATED_COLUMN == std::to_underlying(FindingKind::repeatedColumn));
static_assert(RELLINOR_FINDING_REPEATED_MEMBER == std::to_underlying(FindingKind::repeatedMember));
static_assert(RELLINOR_FINDING_LAST_RESORT == std::to_underlying(FindingKind::lastResort));
static_assert(RELLINOR_FINDING_LEFT_OUT_SIDE_FILE ==
              std::to_underlying(FindingKind::leftOutSideFile));
static_assert(RELLINOR_FINDING_REFUSED_FOR_ITS_COST ==
              std::to_underlying(FindingKind::refusedForItsCost));
static_assert(RELLINOR_FINDING_DAMAGED == std::to_underlying(FindingKind::damaged));
static_assert(RELLINOR_FINDING_LOCKED == std::to_underlying(FindingKind::locked));
static_assert(RELLINOR_FINDING_REPAIRED_TEXT == std::to_underlying(FindingKind::repairedText));
static_assert(RELLINOR_FINDING_NARROWED_NUMBER == std::to_underlying(FindingKind::narrowedNumber));
static_assert(RELLINOR_FINDING_HEADER_TAKEN_FOR_RECORD ==
              std::to_underlying(FindingKind::headerTakenForRecord));

/// What a function says of a case in C++; absent if there is no such case.
template <typename Case>
rellinor_text said(std::string_view (*function)(Case) noexcept, std::int32_t number) noexcept {
    if (!std::in_range<std::underlying_type_t<Case>>(number)) {
        return {};
    }
    const std::string_view text = function(static_cast<Case>(number));
    return text.empty() ? rellinor_text{} : asC(text);
}

} // namespace

} // namespace Rellinor

rellinor_text rellinor_source_name(rellinor_source source) {
    return Rellinor::said<Rellinor::ImportSource>(Rellinor::identifier, source);
}

size_t rellinor_layout_count() {
    return Rellinor::allLayouts().size();
}

rellinor_layout rellinor_layout_at(size_t index) {
    const auto layouts = Rellinor::allLayouts();
    return index < layouts.size() ? Rellinor::numberOf(layouts[index]) : RELLINOR_LAYOUT_NONE;
}

rellinor_layout rellinor_layout_with_identifier(const char* identifier) {
    return Rellinor::numberOf(Rellinor::layoutWithIdentifier(identifier));
}

rellinor_text rellinor_layout_identifier(rellinor_layout layout) {
    return Rellinor::said<Rellinor::Layout>(Rellinor::identifier, layout);
}

rellinor_text rellinor_layout_description(rellinor_layout layout) {
    return Rellinor::said<Rellinor::Layout>(Rellinor::description, layout);
}

bool rellinor_layout_is_read(rellinor_layout layout) {
    return Rellinor::isRead(Rellinor::layoutOf(layout));
}

rellinor_text rellinor_failure_reason_identifier(rellinor_failure_reason reason) {
    return Rellinor::said<Rellinor::FailureReason>(Rellinor::identifier, reason);
}

rellinor_text rellinor_failure_reason_description(rellinor_failure_reason reason) {
    return Rellinor::said<Rellinor::FailureReason>(Rellinor::description, reason);
}

rellinor_text rellinor_extra_kind_identifier(rellinor_extra_kind kind) {
    return Rellinor::said<Rellinor::ExtraKind>(Rellinor::identifier, kind);
}

rellinor_text rellinor_place_unit_identifier(rellinor_place_unit unit) {
    return Rellinor::said<Rellinor::PlaceUnit>(Rellinor::identifier, unit);
}

rellinor_text rellinor_left_out_reason_identifier(rellinor_left_out_reason reason) {
    return Rellinor::said<Rellinor::LeftOutReason>(Rellinor::identifier, reason);
}

rellinor_text rellinor_left_out_reason_description(rellinor_left_out_reason reason) {
    return Rellinor::said<Rellinor::LeftOutReason>(Rellinor::description, reason);
}

rellinor_text rellinor_finding_kind_identifier(rellinor_finding_kind kind) {
    return Rellinor::said<Rellinor::FindingKind>(Rellinor::identifier, kind);
}

rellinor_text rellinor_finding_kind_description(rellinor_finding_kind kind) {
    return Rellinor::said<Rellinor::FindingKind>(Rellinor::description, kind);
}
