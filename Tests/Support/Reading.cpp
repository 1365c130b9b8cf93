#include "Tests/Support/Reading.hpp"

#include <span>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

std::string linesOf(std::span<const Extra> extras) {
    std::string lines;
    for (const Extra& extra : extras) {
        lines.append(identifier(extra.kind)).append(" ").append(extra.label);
        lines.append("=").append(extra.value).append("\n");
    }
    return lines;
}

template <typename Code>
Told<Code> toldOf(const auto& entries, auto code) {
    Told<Code> told;
    for (const auto& entry : entries) {
        told.emplace_back(entry.*code, entry.field, entry.places.count);
    }
    return told;
}

} // namespace

std::uint64_t Reading::delivered() const {
    return records.passwords.size() + records.notes.size() + records.cards.size();
}

std::uint64_t Reading::leftOut(LeftOutReason reason) const {
    std::uint64_t count = 0;
    for (const LeftOut& left : report.leftOut()) {
        count += left.reason == reason ? left.places.count : 0;
    }
    return count;
}

std::uint64_t Reading::found(FindingKind kind, std::string_view field) const {
    std::uint64_t count = 0;
    for (const Finding& finding : report.findings()) {
        count += finding.kind == kind && finding.field == field ? finding.places.count : 0;
    }
    return count;
}

std::uint64_t Reading::found(FindingKind kind) const {
    std::uint64_t count = 0;
    for (const Finding& finding : report.findings()) {
        count += finding.kind == kind ? finding.places.count : 0;
    }
    return count;
}

std::uint64_t Reading::unread(std::string_view part) const {
    for (const Unread& unread : report.unread()) {
        if (unread.part == part) {
            return unread.count;
        }
    }
    return 0;
}

std::string Reading::texts() const {
    std::string texts;
    const auto add = [&](std::string_view text) { texts.append(text).append("\n"); };
    for (const Password& login : records.passwords) {
        add(login.username);
        add(login.password);
        add(login.url);
        add(login.service.value_or(""));
        add(login.note.value_or(""));
    }
    for (const Note& note : records.notes) {
        add(note.title);
        add(note.content);
    }
    for (const Card& card : records.cards) {
        add(card.cardNumber);
        add(card.custName);
        add(card.holderName);
        add(card.cvv);
        add(card.pin);
        add(card.note);
    }
    for (const std::string& lines : extras) {
        add(lines);
    }
    return texts;
}

namespace {

Reading readingAs(const ReadAs& as, const ExportFile& file) {
    ImportedExport read = readExport(file, {.as = as});
    Reading reading{.records = copyOf(read.records), .extras = {}, .report = read.report};
    for (std::size_t index = 0; index < reading.records.passwords.size(); ++index) {
        reading.extras.push_back(linesOf(read.extras.ofPassword(index)));
    }
    for (std::size_t index = 0; index < reading.records.notes.size(); ++index) {
        reading.extras.push_back(linesOf(read.extras.ofNote(index)));
    }
    for (std::size_t index = 0; index < reading.records.cards.size(); ++index) {
        reading.extras.push_back(linesOf(read.extras.ofCard(index)));
    }
    EXPECT_TRUE(accountsForAll(read));
    return reading;
}

} // namespace

Reading readingOf(std::string_view text) {
    return readingAs({}, ExportFile::inMemory(text, "export"));
}

Reading readingOf(Layout layout, const ExportFile& file) {
    return readingAs(layout, file);
}

Reading readingOf(Layout layout, std::string_view text) {
    return readingOf(layout, ExportFile::inMemory(text, "export"));
}

std::vector<ExtraTexts> copyOf(std::span<const Extra> extras) {
    std::vector<ExtraTexts> copies;
    for (const Extra& extra : extras) {
        copies.emplace_back(extra.kind, extra.label, extra.value);
    }
    return copies;
}

Told<LeftOutReason> leftOutOf(const ImportReport& report) {
    return toldOf<LeftOutReason>(report.leftOut(), &LeftOut::reason);
}

Told<FindingKind> findingsOf(const ImportReport& report) {
    return toldOf<FindingKind>(report.findings(), &Finding::kind);
}

ImportedExport readAs(Layout layout, std::string_view path) {
    return readExport(ExportFile::atPath(path), {.as = layout, .onProgress = {}, .limits = {}});
}

bool accountsForAll(const ImportedExport& read) {
    std::uint64_t count = 0;
    if (read.records) {
        count = read.records->passwords.size() + read.records->notes.size() +
                read.records->cards.size();
    }
    for (const LeftOut& leftOut : read.report.leftOut()) {
        count += leftOut.places.count;
    }
    return count == read.report.recordCount();
}

} // namespace Rellinor::Tests
