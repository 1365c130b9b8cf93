// The words for people, and the names for machines, of all that a report holds.

#include "Public/ImportReport.hpp"

namespace Rellinor {

std::string_view description(FailureReason reason) noexcept {
    switch (reason) {
        using enum FailureReason;
    case none:
        return "Nothing keeps the file from being read.";
    case missing:
        return "There is no such file.";
    case noPermission:
        return "The file may not be read by this user.";
    case notAFile:
        return "It is no ordinary file.";
    case unreadable:
        return "The system reports an error while the file is read.";
    case notUTF8:
        return "The text is not UTF-8.";
    case utf16:
        return "The text is UTF-16.";
    case noRows:
        return "There is no row in the file.";
    case wrongColumns:
        return "The columns are not those of such a file.";
    case notJSON:
        return "The text is not JSON.";
    case cutShort:
        return "The file ends before it is complete.";
    case nestedTooDeep:
        return "The file is nested too deep.";
    case wrongShape:
        return "The file has another structure.";
    case locked:
        return "Another program keeps the database to itself.";
    case encrypted:
        return "The file is encrypted.";
    case refusedForItsCost:
        return "Reading the file would take far more than an honest one of its size.";
    case tooLarge:
        return "The file is larger than is allowed.";
    case cancelled:
        return "The import was cancelled.";
    case outOfMemory:
        return "There is not enough memory.";
    case unknown:
        return "It is no export or store that is known.";
    case notRead:
        return "It is a known file that this version does not read.";
    case notBuiltIn:
        return "It is a known file, and reading it was left out of this build.";
    case damaged:
        return "The file contradicts itself.";
    case noStore:
        return "There is nothing in the folder that could be read.";
    case other:
        return "The file could not be read.";
    }
    return {};
}

std::string_view description(LeftOutReason reason) noexcept {
    switch (reason) {
        using enum LeftOutReason;
    case missingField:
        return "A field is missing without which there is no record.";
    case empty:
        return "There is no text in any field that counts.";
    case otherKind:
        return "It is of a kind that is not imported.";
    case fieldOfOtherType:
        return "A field is no text, or the entry is no object.";
    case tooFewCells:
        return "There are too few cells in the row.";
    case bracedIdentifier:
        return "An identifier in braces stands in the row.";
    case placeholder:
        return "The row stands for a folder.";
    case trashed:
        return "It is in the trash.";
    case browserAccount:
        return "It is the account of the browser itself.";
    }
    return {};
}

std::string_view description(FindingKind kind) noexcept {
    switch (kind) {
        using enum FindingKind;
    case arrivedAsNote:
        return "A record of a kind without a place of its own arrives as a note.";
    case stillEncrypted:
        return "A text arrives as the product stores it, encrypted.";
    case doubledQuote:
        return "Two quotes that stand for one stay two.";
    case lostQuote:
        return "A quote at an end of a text was lost.";
    case runOnCell:
        return "A quote that is not closed joins rows.";
    case strayQuote:
        return "A quote stands where none may, and was taken for a letter.";
    case joinedLines:
        return "A row that is written over several lines without quotes was joined.";
    case shortRow:
        return "A row has fewer cells than the header.";
    case longRow:
        return "A row has more cells than the header.";
    case unreadableDate:
        return "A date could not be read.";
    case valueOfOtherType:
        return "A value was left out, since it is no text.";
    case htmlEntity:
        return "A text holds what may be an encoded character.";
    case typedNote:
        return "A note holds the fields of a form.";
    case repeatedColumn:
        return "A column is there twice.";
    case repeatedMember:
        return "A member is there twice.";
    case lastResort:
        return "The columns are known by usual names alone.";
    case leftOutSideFile:
        return "A journal or log beside the database does not belong to it, and was left out.";
    case refusedForItsCost:
        return "The database was not read to its end, which would take far more than an honest one "
               "of its size.";
    case damaged:
        return "The database is damaged, and was not read to its end.";
    case locked:
        return "Another program keeps the database to itself.";
    case repairedText:
        return "Bytes that are no UTF-8 were replaced.";
    case narrowedNumber:
        return "A number lost digits.";
    case headerTakenForRecord:
        return "The header row was taken for a record.";
    }
    return {};
}

std::string_view identifier(FailureReason reason) noexcept {
    switch (reason) {
        using enum FailureReason;
    case none:
        return "none";
    case missing:
        return "missing";
    case noPermission:
        return "noPermission";
    case notAFile:
        return "notAFile";
    case unreadable:
        return "unreadable";
    case notUTF8:
        return "notUTF8";
    case utf16:
        return "utf16";
    case noRows:
        return "noRows";
    case wrongColumns:
        return "wrongColumns";
    case notJSON:
        return "notJSON";
    case cutShort:
        return "cutShort";
    case nestedTooDeep:
        return "nestedTooDeep";
    case wrongShape:
        return "wrongShape";
    case locked:
        return "locked";
    case encrypted:
        return "encrypted";
    case refusedForItsCost:
        return "refusedForItsCost";
    case tooLarge:
        return "tooLarge";
    case cancelled:
        return "cancelled";
    case outOfMemory:
        return "outOfMemory";
    case unknown:
        return "unknown";
    case notRead:
        return "notRead";
    case notBuiltIn:
        return "notBuiltIn";
    case damaged:
        return "damaged";
    case noStore:
        return "noStore";
    case other:
        return "other";
    }
    return {};
}

std::string_view identifier(LeftOutReason reason) noexcept {
    switch (reason) {
        using enum LeftOutReason;
    case missingField:
        return "missingField";
    case empty:
        return "empty";
    case otherKind:
        return "otherKind";
    case fieldOfOtherType:
        return "fieldOfOtherType";
    case tooFewCells:
        return "tooFewCells";
    case bracedIdentifier:
        return "bracedIdentifier";
    case placeholder:
        return "placeholder";
    case trashed:
        return "trashed";
    case browserAccount:
        return "browserAccount";
    }
    return {};
}

std::string_view identifier(FindingKind kind) noexcept {
    switch (kind) {
        using enum FindingKind;
    case arrivedAsNote:
        return "arrivedAsNote";
    case stillEncrypted:
        return "stillEncrypted";
    case doubledQuote:
        return "doubledQuote";
    case lostQuote:
        return "lostQuote";
    case runOnCell:
        return "runOnCell";
    case strayQuote:
        return "strayQuote";
    case joinedLines:
        return "joinedLines";
    case shortRow:
        return "shortRow";
    case longRow:
        return "longRow";
    case unreadableDate:
        return "unreadableDate";
    case valueOfOtherType:
        return "valueOfOtherType";
    case htmlEntity:
        return "htmlEntity";
    case typedNote:
        return "typedNote";
    case repeatedColumn:
        return "repeatedColumn";
    case repeatedMember:
        return "repeatedMember";
    case lastResort:
        return "lastResort";
    case leftOutSideFile:
        return "leftOutSideFile";
    case refusedForItsCost:
        return "refusedForItsCost";
    case damaged:
        return "damaged";
    case locked:
        return "locked";
    case repairedText:
        return "repairedText";
    case narrowedNumber:
        return "narrowedNumber";
    case headerTakenForRecord:
        return "headerTakenForRecord";
    }
    return {};
}

std::string_view identifier(PlaceUnit unit) noexcept {
    switch (unit) {
        using enum PlaceUnit;
    case line:
        return "line";
    case row:
        return "row";
    case record:
        return "record";
    }
    return {};
}

} // namespace Rellinor
