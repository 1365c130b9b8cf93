// Files that cannot be read to their end, or change meanwhile.

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <unistd.h>

#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Exports.hpp"
#include "Tests/Support/Limits.hpp"
#include "Tests/Support/SystemCalls.hpp"

namespace Rellinor::Tests {

namespace {

/// Fails with this error.
int failing(int error) {
    errno = error;
    return -1;
}

class ReadingTest : public testing::TestWithParam<Export> {
protected:
    ReadingTest() : _path(GetParam().written(_folder, GetParam().bytes())) {}

    [[nodiscard]] Outcome imported() const { return outcomeOf(GetParam().source, _path); }

    [[nodiscard]] std::string file() const { return GetParam().fileIn(_folder); }

    [[nodiscard]] const Outcome& whole() const { return _whole; }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    static constexpr std::size_t piece = 100;

    [[nodiscard]] static std::size_t piecesOf(std::string_view bytes) {
        return (bytes.size() + piece - 1) / piece;
    }

    /// Imports with reads of no more than a piece; after the `last` of them something is done.
    [[nodiscard]] Outcome importedWhile(std::size_t last,
                                        const std::function<void()>& change) const {
        std::size_t reads = 0;
        SystemCalls calls;
        calls.read = [&](int descriptor, void* target, std::size_t size) {
            const ssize_t result = systemRead(descriptor, target, std::min(size, piece));
            if (++reads == last) {
                change();
            }
            return result;
        };
        const Outcome outcome = imported();
        EXPECT_GT(reads, last);
        return outcome;
    }

private:
    TemporaryFolder _folder;
    std::string _path;
    Outcome _whole = GetParam().whole();
};

TEST_P(ReadingTest, cannotReadAFileWhoseReadFailsAnywhere) {
    for (const int error : {EIO, EAGAIN, EISDIR}) {
        for (std::size_t nth = 1; nth <= 3; ++nth) {
            std::size_t reads = 0;
            SystemCalls calls;
            calls.read = [&](int descriptor, void* target, std::size_t size) {
                return ++reads == nth ? failing(error)
                                      : systemRead(descriptor, target, std::min(size, 100UZ));
            };
            EXPECT_EQ(imported(), GetParam().unreadable) << error << ' ' << nth;
            EXPECT_EQ(reads, nth);
        }
    }
}

TEST_P(ReadingTest, readsOnAfterAnInterruption) {
    std::size_t reads = 0;
    SystemCalls calls;
    calls.read = [&](int descriptor, void* target, std::size_t size) {
        return ++reads % 2 == 1 ? failing(EINTR) : systemRead(descriptor, target, size);
    };
    EXPECT_EQ(imported(), whole());
    EXPECT_GE(reads, 4);
}

TEST_P(ReadingTest, opensAFileAgainAfterAnInterruption) {
    std::size_t opened = 0;
    SystemCalls calls;
    calls.open = [&](const char* path, int flags) {
        return ++opened < 3 ? failing(EINTR) : systemOpen(path, flags);
    };
    EXPECT_EQ(imported(), whole());
    EXPECT_EQ(opened, 3);
}

TEST_P(ReadingTest, readsAFileThatComesInSmallPieces) {
    std::size_t reads = 0;
    SystemCalls calls;
    calls.read = [&](int descriptor, void* target, std::size_t size) {
        return systemRead(descriptor, target, std::min(size, ++reads % 5 + 1));
    };
    EXPECT_EQ(imported(), whole());
    EXPECT_GT(reads, 100);
}

TEST_P(ReadingTest, readsAFileThatGrowsMeanwhile) {
    // The size that the file had when it was opened is no more than a hint.
    for (const off_t size : {0, 1, 100, 100'000}) {
        SystemCalls calls;
        calls.fstat = [&](int descriptor, struct stat* status) {
            const int result = systemStatus(descriptor, status);
            status->st_size = size;
            return result;
        };
        EXPECT_EQ(imported(), whole()) << size;
    }
}

TEST_P(ReadingTest, takesAFileThatShrinksMeanwhileForWhatIsLeft) {
    std::size_t reads = 0;
    SystemCalls calls;
    calls.read = [&](int descriptor, void* target, std::size_t size) {
        if (++reads == 1) {
            std::filesystem::resize_file(file(), 0);
        }
        return systemRead(descriptor, target, size);
    };
    const Outcome outcome = imported();
    calls.read = nullptr;
    EXPECT_EQ(std::filesystem::file_size(file()), 0);
    EXPECT_EQ(outcome, imported());
    EXPECT_NE(outcome, whole());
}

TEST_P(ReadingTest, takesAFileThatIsCutMeanwhileForWhatWasRead) {
    const std::string bytes = GetParam().bytes();
    for (std::size_t last = 1; last <= piecesOf(bytes); ++last) {
        (void)GetParam().written(folder(), bytes);
        const Outcome outcome =
            importedWhile(last, [&] { std::filesystem::resize_file(file(), 0); });
        (void)GetParam().written(folder(), bytes.substr(0, last * piece));
        EXPECT_EQ(outcome, imported()) << last;
    }
}

TEST_P(ReadingTest, readsWhatIsAppendedMeanwhile) {
    const std::string bytes = GetParam().bytes();
    const std::string more = bytes.substr(bytes.size() / 2);
    (void)GetParam().written(folder(), bytes + more);
    const Outcome appended = imported();
    EXPECT_NE(appended, whole());
    for (std::size_t last = 1; last <= piecesOf(bytes); ++last) {
        (void)GetParam().written(folder(), bytes);
        const Outcome outcome = importedWhile(
            last, [&] { std::ofstream(file(), std::ios::binary | std::ios::app) << more; });
        EXPECT_EQ(outcome, appended) << last;
    }
}

TEST_P(ReadingTest, cannotReadAFileOfWhichNothingIsKnown) {
    SystemCalls calls;
    calls.fstat = [](int /*descriptor*/, struct stat* /*status*/) { return failing(EIO); };
    EXPECT_EQ(imported(), GetParam().unreadable);
}

using DescriptorsTest = ReadingTest;

TEST_P(DescriptorsTest, cannotReadAFileWithoutADescriptorForIt) {
    // The first time, a sanitizer takes descriptors for itself.
    EXPECT_EQ(imported(), whole());
    (void)outcomeOf(GetParam().source, file() + "/missing");
    const std::size_t open = openDescriptors();
    {
        const NoMoreDescriptors limit;
        EXPECT_EQ(imported(), GetParam().unreadable);
    }
    EXPECT_EQ(openDescriptors(), open);
    EXPECT_EQ(imported(), whole());
}

INSTANTIATE_TEST_SUITE_P(Importers, ReadingTest, testing::ValuesIn(allFiles()), nameOf);
INSTANTIATE_TEST_SUITE_P(Importers, DescriptorsTest, testing::ValuesIn(allExports()), nameOf);

} // namespace

} // namespace Rellinor::Tests
