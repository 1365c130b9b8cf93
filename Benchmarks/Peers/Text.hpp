#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace Rellinor::Benchmarks {

/// The text of a file, as most programs read it.
inline std::string contentsOf(const std::filesystem::path& file) {
    std::string text(std::filesystem::file_size(file), '\0');
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(text.data(), std::ssize(text))) {
        throw std::runtime_error("the file cannot be read");
    }
    return text;
}

/// Calls `read` with the position and the size of each line of a 1PIF export that is a record.
void forEachRecord(const std::string& text, auto&& read) {
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = text.find('\n', start);
        end = end == std::string::npos ? text.size() : end;
        if (text[start] == '{') {
            read(start, end - start);
        }
        start = end + 1;
    }
}

} // namespace Rellinor::Benchmarks
