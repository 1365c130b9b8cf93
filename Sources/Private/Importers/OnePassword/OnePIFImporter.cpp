#include "Private/Importers/OnePassword/OnePIFImporter.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "Platform/File.hpp"
#include "Private/Importers/CardDate.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/PIFFileProxy.hpp"

namespace Rellinor {

namespace {

using Field = OnePasswordField;
using enum OnePasswordShape;

/// A text that is absent if it is empty.
std::optional<std::string_view> ifAny(std::string_view text) noexcept {
    return text.empty() ? std::nullopt : std::optional(text);
}

/// The text of an export, which a folder may hold.
ExportFile dataOf(const ExportFile& file) {
    if (file.url()) {
        const URL data = file.url()->appendingPathComponent("data.1pif");
        if (isReadableFile(data.path())) {
            return ExportFile::atPath(data);
        }
    }
    return file;
}

} // namespace

JSONRecords OnePIFImporter::read(const ExportFile& file, ImportMemory& memory, Reporter* reporter) {
    _memory = &memory;
    _reporter = reporter;
    PIFLines* const lines = reportPIFLines(reporter);
    PIFRecords parsed =
        PIFFileProxy::records(dataOf(file), onePIFKeys, memory, lines, largestFileFor(reporter));
    if (parsed.otherLines > 0) {
        reporter->unread("lines that are no record", parsed.otherLines);
    }
    const JSONObjects records = parsed.document.root().objects().value();
    for (const JSONObject& record : records) {
        addFolder(record, _folders);
    }
    return {std::move(parsed.document), records};
}

bool OnePIFImporter::isPassword(const RawRecord& record) {
    decode(record, _folders, *_memory, *_reporter, _item);
    return isOf(webForm) || isOf(login);
}

bool OnePIFImporter::isNote(const RawRecord& /*record*/) const noexcept {
    return isOf(note) || isOf(other);
}

bool OnePIFImporter::isCard(const RawRecord& /*record*/) const noexcept {
    return isOf(card);
}

Built<ImportedPassword> OnePIFImporter::buildPassword(const RawRecord& /*record*/) const noexcept {
    return ImportedPassword{
        _item[Field::username], _item[Field::password], _item[Field::address], ifAny(_item.title),
        std::nullopt, // color
        ifAny(_item.note),
        std::nullopt, // pwdChange
    };
}

Built<ImportedNote> OnePIFImporter::buildNote(const RawRecord& /*record*/) const {
    const bool isOther = isOf(other);
    if (isOther) {
        _reporter->found(FindingKind::arrivedAsNote, _item.category.name);
    }
    return ImportedNote{
        std::nullopt, // color
        _item.title,
        isOther ? _item.linesAndNote(*_memory) : _item.note,
    };
}

Built<ImportedCard> OnePIFImporter::buildCard(const RawRecord& /*record*/) {
    const auto inOne = cardDate(_item[Field::expiry]);
    const auto inTwo = cardDate(_item[Field::expiryMonth], _item[Field::expiryYear]);
    const auto keep = [&](Field field, std::string_view name) {
        if (!_item[field].empty()) {
            _item.values.push_back(
                {.kind = ExtraKind::customText, .label = name, .value = _item[field]});
        }
    };
    if (!inOne && !_item[Field::expiry].empty()) {
        _reporter->found(FindingKind::unreadableDate, "expiry");
        keep(Field::expiry, "expiry");
    }
    if (!inTwo) {
        _reporter->found(FindingKind::unreadableDate, "expiry_mm");
    }
    const CardDate date = inOne ? *inOne : inTwo.value_or(CardDate());
    if (inTwo != date) {
        keep(Field::expiryMonth, "expiry_mm");
        keep(Field::expiryYear, "expiry_yy");
    }
    return ImportedCard{
        _item[Field::cardNumber],
        _item.title,
        _item[Field::cardHolder],
        _item[Field::cvv],
        _item[Field::pin],
        _item.note,
        0, // expirationDay
        date.month,
        date.year,
    };
}

void OnePIFImporter::addExtras(const RawRecord& /*record*/, ExtrasList& extras) const {
    if (!isOf(other)) {
        for (const Extra& value : _item.values) {
            extras.add(value.kind, value.label, value.value);
        }
    }
    for (const Extra& fact : _item.facts) {
        extras.add(fact.kind, fact.label, fact.value);
    }
}

void OnePIFImporter::tellUnread(const RawRecord& /*record*/, Reporter& reporter) const noexcept {
    for (const std::string_view part : _item.unread) {
        reporter.unread(part);
    }
}

Dropped OnePIFImporter::whyNoKind(const RawRecord& /*record*/) const noexcept {
    if (_item.category.shape == folder) {
        return {.reason = LeftOutReason::placeholder, .field = {}};
    }
    return {.reason = _item.isTrashed ? LeftOutReason::trashed : LeftOutReason::empty, .field = {}};
}

bool OnePIFImporter::isOf(OnePasswordShape shape) const noexcept {
    return _item.category.shape == shape && !_item.isTrashed && !_item.isEmpty();
}

} // namespace Rellinor
