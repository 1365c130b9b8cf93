#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor::Tests {

/// A member of an archive that is written. What is set stands in place of the truth.
struct ZipFile {
    std::string_view name;
    std::string_view contents = {};
    bool isDeflated = false;
    bool isEncrypted = false;
    bool hasSizesInFront = true; ///< or zeros there, as who writes in one go leaves them
    std::optional<std::uint16_t> method = std::nullopt;
    std::optional<std::uint32_t> size = std::nullopt;
    std::optional<std::uint32_t> packedSize = std::nullopt;
    std::optional<std::uint32_t> checksum = std::nullopt;
    std::optional<std::uint32_t> begin = std::nullopt;
    std::optional<std::string_view> nameInFront = std::nullopt;
    std::optional<std::string_view> packed = std::nullopt;
};

/// An archive.
[[nodiscard]] std::string zipOf(const std::vector<ZipFile>& files, std::string_view comment = {});

/// A number as archives write it.
[[nodiscard]] std::string zipNumber(std::size_t value, std::size_t size);

/// So many times 2^20 zeros, deflated.
[[nodiscard]] std::string deflatedZeros(std::size_t mebibytes);

} // namespace Rellinor::Tests
