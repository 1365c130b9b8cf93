#include "Host/Terminal.hpp"

#include <charconv>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <system_error>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Rellinor::Host {

namespace {

/// A variable of the environment; empty if it is not set.
std::string_view variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view() : value;
}

/// The number of columns that a text names; absent if that makes no sense.
std::optional<std::size_t> columnsNamed(std::string_view text) {
    unsigned short columns = 0; // as wide as a terminal can say that it is
    const char* const begin = std::to_address(text.begin());
    const char* const end = std::to_address(text.end());
    const auto [rest, error] = std::from_chars(begin, end, columns);
    return error == std::errc() && rest == end && columns > 0 ? std::optional<std::size_t>(columns)
                                                              : std::nullopt;
}

std::size_t widthOf(int descriptor) {
    constexpr std::size_t usual = 80;

    winsize size{};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) { // NOLINT(*-vararg)
        return size.ws_col;
    }
    return columnsNamed(variable("COLUMNS")).value_or(usual);
}

bool wantsColours() {
    const std::string_view kind = variable("TERM");
    return variable("NO_COLOR").empty() && !kind.empty() && kind != "dumb";
}

} // namespace

Terminal terminalAt(int descriptor) {
    if (::isatty(descriptor) != 1) {
        return {};
    }
    return {.width = widthOf(descriptor), .colours = wantsColours()};
}

} // namespace Rellinor::Host
