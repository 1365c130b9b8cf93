#include "Private/Proxies/SQLiteSnapshot.hpp"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "Private/Proxies/ExportContents.hpp"
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

std::expected<Files, FailureReason> readOnce(const ExportFile& file, const std::string& path,
                                             std::uint64_t mostBytes) {
    Files files;
    auto database = contentsOf(file, {}, mostBytes);
    if (!database) {
        return std::unexpected(database.error());
    }
    files.database = *std::move(database);
    if (!file.url()) {
        files.journal.emplace();
        files.log.emplace();
        return files;
    }
    // What is written back from the log while the files are read is then missing in neither.
    auto log = contentsBeside(path + "-wal", mostBytes);
    auto journal = contentsBeside(path + "-journal", mostBytes);
    if (!log || !journal) {
        return std::unexpected(FailureReason::tooLarge);
    }
    files.log = *std::move(log);
    files.journal = *std::move(journal);
    return files;
}

std::array<FileStamp, 3> stampsOf(const std::string& path) noexcept {
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
