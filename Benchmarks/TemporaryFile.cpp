#include "Benchmarks/TemporaryFile.hpp"

#include <fstream>

#include <unistd.h>

namespace Rellinor::Benchmarks {

TemporaryFile::TemporaryFile()
    : _path(std::filesystem::temp_directory_path() /
            ("rellinor-benchmark-" + std::to_string(::getpid()))) {}

TemporaryFile::TemporaryFile(std::string_view contents) : TemporaryFile() {
    std::ofstream(_path, std::ios::binary) << contents;
}

TemporaryFile::~TemporaryFile() {
    for (const std::string suffix : {"", "-journal", "-wal", "-shm"}) {
        std::error_code ignored;
        std::filesystem::remove(_path.native() + suffix, ignored);
    }
}

} // namespace Rellinor::Benchmarks
