#include "Private/Proxies/SQLiteSnapshot.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Private/Proxies/ExportContents.hpp"
#include "Private/Proxies/SQLiteJournal.hpp"
#include "Private/Proxies/SQLiteRecovery.hpp"

namespace Rellinor {

namespace {

/// A database with the files beside it, as they were read.
struct Files {
    FileContents database;
    std::optional<FileContents> journal; // absent if it cannot be read
    std::optional<FileContents> log;
};

/// What is read of a file beside a database: nothing if there is none, absent if it is left out.
std::expected<std::optional<FileContents>, FailureReason> contentsBeside(const std::string& path,
                                                                         std::uint64_t mostBytes) {
    const auto size = sizeOfFile(path);
    if (!size) {
        return std::nullopt;
    }
    if (*size == 0) {
        return FileContents();
    }
    auto contents = readFile(path, {}, mostBytes);
    if (contents) {
        return *std::move(contents);
    }
    switch (contents.error()) {
    case FileError::missing:
        return FileContents();
    case FileError::tooLarge:
        return std::unexpected(FailureReason::tooLarge);
    default:
        return std::nullopt;
    }
}

constexpr std::size_t sizeOfHeader = 100;

/// How many bytes of a file SQLite would read: none but its beginning if the file is no database,
/// and nothing behind its pages. The file's size if the header does not tell.
std::uint64_t usedSizeOf(std::string_view header, std::uint64_t size) noexcept {
    using namespace std::string_view_literals;

    if (header.size() < sizeOfHeader || !header.starts_with("SQLite format 3\0"sv)) {
        return header.size();
    }
    const std::uint64_t pages = numberAt(header, 28);
    const bool isTold = pages > 0 && numberAt(header, 24) == numberAt(header, 92);
    return isTold ? std::min(size, pages * pageSizeOf(header)) : size;
}

/// The bytes of a database beside which nothing lies.
std::expected<FileContents, FailureReason> usedContentsOf(const std::string& path,
                                                          std::uint64_t mostBytes) {
    const auto file = OpenFile::at(path);
    if (!file) {
        return std::unexpected(reasonOf(file.error()));
    }
    std::array<char, sizeOfHeader> header{};
    const auto read = file->read(0, header);
    const std::uint64_t used = usedSizeOf({header.data(), read.value_or(0)}, file->size());
    if (used > mostBytes) {
        return std::unexpected(FailureReason::tooLarge);
    }
    FileContents contents{.buffer = WipedBuffer(used)};
    const auto size = read ? file->read(0, contents.buffer.bytes()) : std::nullopt;
    if (!size) {
        return std::unexpected(FailureReason::unreadable);
    }
    contents.size = *size;
    return contents;
}

std::expected<Files, FailureReason> readOnce(const ExportFile& file, const std::string& path,
                                             std::uint64_t mostBytes) {
    Files files{.database = {}, .journal = FileContents(), .log = FileContents()};
    if (file.url()) {
        auto log = contentsBeside(path + "-wal", mostBytes);
        auto journal = contentsBeside(path + "-journal", mostBytes);
        if (!log || !journal) {
            return std::unexpected(FailureReason::tooLarge);
        }
        files.log = *std::move(log);
        files.journal = *std::move(journal);
    }
    // What lies beside a database may tell of pages that its header does not tell of.
    const auto isNothing = [](const auto& beside) { return beside && beside->size == 0; };
    const bool isAlone = isNothing(files.log) && isNothing(files.journal);
    auto database =
        file.url() && isAlone ? usedContentsOf(path, mostBytes) : contentsOf(file, {}, mostBytes);
    if (!database) {
        return std::unexpected(database.error());
    }
    files.database = *std::move(database);
    return files;
}

std::array<FileStamp, 3> stampsOf(const std::string& path) {
    return {stampOf(path), stampOf(path + "-journal"), stampOf(path + "-wal")};
}

/// Reads the files until nobody has written to one of them meanwhile, or has done so each time.
std::expected<Files, FailureReason> readAll(const ExportFile& file, std::uint64_t mostBytes) {
    constexpr int mostAttempts = 5;

    const std::string path = file.url() ? withoutLinks(file.url()->path()) : std::string();
    for (int attempt = 1;; ++attempt) {
        const auto before = stampsOf(path);
        auto files = readOnce(file, path, mostBytes);
        if (!files || !file.url() || attempt == mostAttempts || stampsOf(path) == before) {
            return files;
        }
    }
}

/// Has SQLite take a database for one without a log: what stood in it is in the database.
void forgetLog(std::span<char> database) noexcept {
    constexpr std::size_t placeOfVersions = 18; // for writing, and for reading
    constexpr char withLog = 2;
    constexpr char withoutLog = 1;

    if (database.size() < placeOfVersions + 2) {
        return;
    }
    for (char& version : database.subspan(placeOfVersions, 2)) {
        version = version == withLog ? withoutLog : version;
    }
}

} // namespace

std::expected<SQLiteSnapshot, FailureReason> SQLiteSnapshot::of(const ExportFile& file,
                                                                std::uint64_t mostBytes) {
    auto files = readAll(file, mostBytes);
    if (!files) {
        return std::unexpected(files.error());
    }
    SQLiteSnapshot snapshot;
    snapshot._database = std::move(files->database);
    snapshot._sizeOfFiles = snapshot._database.size;
    const auto recover = [&](std::optional<FileContents>& beside, auto how) {
        if (beside) {
            snapshot._sizeOfFiles += beside->size;
        }
        return beside && how(snapshot._database, beside->bytes());
    };
    snapshot._hasLeftOutJournal = !recover(files->journal, playBackJournal);
    snapshot._hasLeftOutLog = !recover(files->log, applyLog);
    forgetLog(snapshot.bytes());
    return snapshot;
}

} // namespace Rellinor
