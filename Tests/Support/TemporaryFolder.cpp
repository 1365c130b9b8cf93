#include "Tests/Support/TemporaryFolder.hpp"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include <stdlib.h> // NOLINT(modernize-deprecated-headers): mkdtemp is POSIX

namespace Rellinor::Tests {

TemporaryFolder::TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "rellinor-test-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    _path = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(_path, ignored);
}

std::string TemporaryFolder::file(std::string_view name, std::string_view contents) const {
    std::ofstream stream(_path / name, std::ios::binary);
    stream << contents;
    if (!stream.flush()) {
        throw std::runtime_error("a temporary file could not be written");
    }
    return *this / name;
}

std::string TemporaryFolder::operator/(std::string_view name) const {
    return (_path / name).string();
}

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot open " + file.string());
    }
    std::ostringstream contents;
    contents << stream.rdbuf();
    return std::move(contents).str();
}

} // namespace Rellinor::Tests
