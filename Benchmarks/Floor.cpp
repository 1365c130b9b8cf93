#include "Benchmarks/Floor.hpp"

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

#include "Private/Text/UTF8.hpp"

namespace Rellinor::Benchmarks {

char floorOf(const std::filesystem::path& file, std::size_t deliveredBytes) {
    const std::size_t size = std::filesystem::file_size(file);
    const auto text = std::make_unique_for_overwrite<char[]>(size);

    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC); // NOLINT(*-vararg)
    std::size_t filled = 0;
    for (ssize_t count = 1; count > 0 && filled < size; filled += static_cast<std::size_t>(count)) {
        count = ::read(descriptor, text.get() + filled, size - filled);
    }
    ::close(descriptor);

    if (filled != size || !isUTF8({text.get(), size})) {
        throw std::runtime_error("the floor could not read its file");
    }
    const std::size_t copied = std::min(deliveredBytes, size);
    const auto copy = std::make_unique_for_overwrite<char[]>(copied);
    std::memcpy(copy.get(), text.get(), copied);
    return copy[copied / 2];
}

} // namespace Rellinor::Benchmarks
