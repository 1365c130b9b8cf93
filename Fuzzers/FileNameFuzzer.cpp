// Files of any name: what the system takes for one is read, nothing else is.

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include <Rellinor/URL.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Platform/File.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Fuzzers {

namespace {

constexpr std::string_view contents = "contents\0of any kind";

/// Makes a file of that name in a folder of its own, if the system lets.
bool makeFile(const std::string& path) {
    const int descriptor = // NOLINTNEXTLINE(*-vararg)
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0) {
        return false;
    }
    expect(::write(descriptor, contents.data(), contents.size()) ==
           static_cast<::ssize_t>(contents.size()));
    expect(::close(descriptor) == 0);
    return true;
}

} // namespace

void fuzz(std::string_view input) {
    static const Tests::TemporaryFolder folder;
    if (input.contains('/')) {
        return;
    }
    const URL url = URL::fileURLWithPath(folder.path().native()).appendingPathComponent(input);
    const std::string path(url.path());
    expect(path == folder / input || input.empty());

    const bool isFile = !path.contains('\0') && makeFile(path);
    auto read = readFile(path);
    expect(read.has_value() == isFile);
    if (isFile) {
        expect(std::string_view(read->bytes().data(), read->bytes().size()) == contents);
        expect(isReadableFile(path));
        expect(::unlink(path.c_str()) == 0);
    }
    // What is left are the folder itself and the one it is in.
    expect(isReadableFile(path) == (input.empty() || input == "." || input == ".."));
}

} // namespace Rellinor::Fuzzers
