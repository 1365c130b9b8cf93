#include "Host/DatabaseAddress.hpp"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace Rellinor::Host {

std::string immutableAddress(const std::string& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";

    std::error_code ignored;
    std::string address = "file:";
    for (const char character : std::filesystem::absolute(path, ignored).string()) {
        const auto byte = static_cast<unsigned char>(character);
        address += '%';
        address += digits[byte / digits.size()];
        address += digits[byte % digits.size()];
    }
    return address + "?immutable=1";
}

} // namespace Rellinor::Host
