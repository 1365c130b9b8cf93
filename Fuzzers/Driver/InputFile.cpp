#include "Fuzzers/Driver/InputFile.hpp"

#include <sys/types.h>

#include <fcntl.h>
#include <unistd.h>

#include "Fuzzers/Driver/Fuzzer.hpp"

namespace Rellinor::Fuzzers {

InputFile::InputFile(std::string_view name)
    : _path(_folder / name), // NOLINTNEXTLINE(*-vararg)
      _descriptor(::open(_path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    expect(_descriptor >= 0);
}

InputFile::~InputFile() {
    ::close(_descriptor);
}

void InputFile::write(std::string_view contents) const {
    const auto size = static_cast<::ssize_t>(contents.size());
    expect(::pwrite(_descriptor, contents.data(), contents.size(), 0) == size);
    expect(::ftruncate(_descriptor, size) == 0);
}

void InputFile::expectUnchanged(std::string_view contents) const {
    expect(Tests::contentsOf(_path) == contents);
}

void InputDatabase::write(std::string_view contents) const {
    for (const char* const ending : {"-journal", "-wal", "-shm"}) {
        ::unlink((path() + ending).c_str());
    }
    _file.write(contents);
}

} // namespace Rellinor::Fuzzers
