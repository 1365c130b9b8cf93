#include "Private/Proxies/SQLiteRecovery.hpp"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string_view>
#include <utility>

#include "Private/Proxies/SQLiteJournal.hpp"

namespace Rellinor {

namespace {

bool isPowerOfTwoFrom(std::uint32_t least, std::uint32_t number) noexcept {
    return number >= least && number <= largestPageOfDatabase && std::has_single_bit(number);
}

/// Makes a database so many bytes long, with zeros at its end if it was shorter.
void resize(FileContents& database, std::size_t size) {
    if (database.begin + size > database.buffer.size()) {
        FileContents larger{
            .buffer = WipedBuffer(database.begin + size), .begin = database.begin, .size = size};
        std::ranges::copy(database.bytes(), larger.bytes().begin());
        std::swap(database.buffer, larger.buffer);
    }
    const std::size_t oldSize = std::exchange(database.size, size);
    if (size > oldSize) {
        std::ranges::fill(database.bytes().subspan(oldSize), '\0');
    }
}

/// Whether a file beside a database may make it have so many pages.
bool mayHave(std::uint32_t pages, std::uint32_t pageSize, const FileContents& database,
             std::string_view beside) noexcept {
    return std::uint64_t{pages} * pageSize <=
           (std::uint64_t{database.size} + beside.size()) * largestGrowthOfDatabase;
}

/// Puts a page where it belongs; one beyond the end is nothing.
void put(FileContents& database, std::uint32_t number, std::string_view page) noexcept {
    const std::size_t place = std::size_t{number - 1} * page.size();
    if (place + page.size() <= database.size) {
        std::ranges::copy(page, database.bytes().subspan(place).begin());
    }
}

// Journals

std::uint32_t sumOfPage(std::string_view page, std::uint32_t seed) noexcept {
    constexpr std::size_t step = 200;

    for (std::size_t place = page.size() - step; place > 0 && place < page.size(); place -= step) {
        seed += static_cast<unsigned char>(page[place]);
    }
    return seed;
}

/// A page that a journal keeps; without a number if it is not whole.
struct JournalPage {
    std::uint32_t number = 0;
    std::string_view bytes;
    bool isSound = false;
};

JournalPage journalPageAt(std::string_view journal, std::size_t place, std::uint32_t pageSize,
                          std::uint32_t seed) noexcept {
    if (place + 4 + pageSize + 4 > journal.size()) {
        return {};
    }
    const std::string_view page = journal.substr(place + 4, pageSize);
    return {.number = numberAt(journal, place),
            .bytes = page,
            .isSound = sumOfPage(page, seed) == numberAt(journal, place + 4 + pageSize)};
}

/// Ends at the first page that is not sound, as SQLite does.
void playBack(FileContents& database, std::string_view journal, const JournalPart& first) {
    constexpr std::uint32_t asManyAsThereAre = 0xFFFFFFFF;
    const std::uint32_t pageOfLocks = 0x40000000 / first.pageSize + 1;
    const std::size_t sizeOfRecord = std::size_t{first.pageSize} + 8;

    resize(database, std::size_t{first.allPages} * first.pageSize);
    std::size_t place = 0;
    while (place + first.sectorSize <= journal.size() &&
           journal.substr(place).starts_with(magicOfJournal)) {
        const JournalPart part = JournalPart::at(journal, place);
        std::uint64_t pages = part.pages;
        if (part.pages == asManyAsThereAre) {
            pages = (journal.size() - first.sectorSize) / sizeOfRecord;
        }
        place += first.sectorSize;
        for (; pages > 0; --pages, place += sizeOfRecord) {
            const JournalPage page = journalPageAt(journal, place, first.pageSize, part.seed);
            if (page.number == 0 || page.number == pageOfLocks) {
                return;
            }
            if (page.number <= first.allPages) {
                if (!page.isSound) {
                    return;
                }
                put(database, page.number, page.bytes);
            }
        }
        place = (place + first.sectorSize - 1) / first.sectorSize * first.sectorSize;
    }
}

// Logs

constexpr std::size_t sizeOfLogHeader = 32;
constexpr std::size_t sizeOfFrameHeader = 24;

/// The checksum of a log as far as it was read.
class LogSum {
public:
    explicit LogSum(bool isBigEndian) noexcept : _isBigEndian(isBigEndian) {}

    /// @param bytes  a multiple of eight
    void add(std::string_view bytes) noexcept {
        for (std::size_t place = 0; place < bytes.size(); place += 8) {
            _one += wordAt(bytes, place) + _other;
            _other += wordAt(bytes, place + 4) + _one;
        }
    }

    /// Whether it stands in the bytes at a place.
    [[nodiscard]] bool isAt(std::string_view bytes, std::size_t place) const noexcept {
        return numberAt(bytes, place) == _one && numberAt(bytes, place + 4) == _other;
    }

private:
    [[nodiscard]] std::uint32_t wordAt(std::string_view bytes, std::size_t place) const noexcept {
        const std::uint32_t word = numberAt(bytes, place);
        return _isBigEndian ? word : std::byteswap(word);
    }

    bool _isBigEndian;
    std::uint32_t _one = 0;
    std::uint32_t _other = 0;
};

/// The frames of a log that are sound, and how far the changes in them are complete.
struct LogFrames {
    std::size_t sound = 0;
    std::size_t complete = 0;
    std::uint32_t pages = 0; ///< of the database after the last change that is complete
};

LogFrames framesOf(std::string_view log, std::size_t sizeOfFrame, LogSum sum) noexcept {
    const std::string_view salt = log.substr(16, 8);
    LogFrames frames;
    for (std::size_t place = sizeOfLogHeader; place + sizeOfFrame <= log.size();
         place += sizeOfFrame) {
        const std::string_view frame = log.substr(place, sizeOfFrame);
        sum.add(frame.substr(0, 8));
        sum.add(frame.substr(sizeOfFrameHeader));
        if (numberAt(frame, 0) == 0 || frame.substr(8, 8) != salt || !sum.isAt(frame, 16)) {
            break; // what an earlier log left, or was not written to its end
        }
        ++frames.sound;
        if (const std::uint32_t pages = numberAt(frame, 4); pages != 0) {
            frames.complete = frames.sound;
            frames.pages = pages;
        }
    }
    return frames;
}

} // namespace

bool playBackJournal(FileContents& database, std::span<const char> journal) {
    constexpr std::size_t smallest = 512;

    const std::string_view bytes(journal.data(), journal.size());
    if (bytes.empty() || bytes.front() == '\0') {
        return true;
    }
    const std::size_t sizeOfEnd = std::min(bytes.size(), longestEndOfJournal());
    if (database.size == 0 || bytes.size() < smallest || !bytes.starts_with(magicOfJournal) ||
        namesOtherFile(bytes.substr(bytes.size() - sizeOfEnd))) {
        return false;
    }
    const JournalPart first = JournalPart::at(bytes, 0);
    if (!isPowerOfTwoFrom(32, first.sectorSize) || !isPowerOfTwoFrom(512, first.pageSize) ||
        !mayHave(first.allPages, first.pageSize, database, bytes)) {
        return false;
    }
    if (first.pages > 0 &&
        !journalPageAt(bytes, first.sectorSize, first.pageSize, first.seed).isSound) {
        return false;
    }
    playBack(database, bytes, first);
    return true;
}

bool applyLog(FileContents& database, std::span<const char> log) {
    constexpr std::uint32_t magicOfLog = 0x377F0682; // one more if its sums are big-endian
    constexpr std::uint32_t version = 3007000;

    const std::string_view bytes(log.data(), log.size());
    if (bytes.empty()) {
        return true;
    }
    const std::uint32_t magic = numberAt(bytes, 0);
    const std::uint32_t pageSize = numberAt(bytes, 8);
    if (database.size == 0 || bytes.size() < sizeOfLogHeader || (magic & ~1U) != magicOfLog ||
        numberAt(bytes, 4) != version || !isPowerOfTwoFrom(512, pageSize) ||
        pageSize != pageSizeOf({database.bytes().data(), database.size})) {
        return false;
    }
    LogSum sum(magic != magicOfLog);
    sum.add(bytes.substr(0, 24));
    if (!sum.isAt(bytes, 24)) {
        return false;
    }
    const std::size_t sizeOfFrame = sizeOfFrameHeader + pageSize;
    const LogFrames frames = framesOf(bytes, sizeOfFrame, sum);
    const bool hasAny = bytes.size() >= sizeOfLogHeader + sizeOfFrame;
    if ((hasAny && frames.sound == 0) || !mayHave(frames.pages, pageSize, database, bytes)) {
        return false;
    }
    if (frames.complete > 0) {
        resize(database, std::size_t{frames.pages} * pageSize);
    }
    for (std::size_t frame = 0; frame < frames.complete; ++frame) {
        const std::string_view whole =
            bytes.substr(sizeOfLogHeader + frame * sizeOfFrame, sizeOfFrame);
        put(database, numberAt(whole, 0), whole.substr(sizeOfFrameHeader));
    }
    return true;
}

} // namespace Rellinor
