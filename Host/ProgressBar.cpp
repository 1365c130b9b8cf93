#include "Host/ProgressBar.hpp"

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>

namespace Rellinor::Host {

ProgressBar::ProgressBar(std::ostream& terminal) noexcept
    : _terminal(terminal), _begin(std::chrono::steady_clock::now()) {}

ProgressBar::~ProgressBar() {
    if (_isShown) {
        _terminal << "\r\x1B[K" << std::flush;
    }
}

void ProgressBar::show(const Progress& progress) {
    constexpr std::chrono::milliseconds patience{500};
    constexpr std::uint64_t width = 30;

    if (progress.total == 0 || std::chrono::steady_clock::now() - _begin < patience) {
        return;
    }
    const std::uint64_t done = std::min(progress.done, progress.total);
    const auto of = [&](std::uint64_t whole) {
        return static_cast<std::uint64_t>(static_cast<double>(done) /
                                          static_cast<double>(progress.total) *
                                          static_cast<double>(whole));
    };
    _isShown = true;
    _terminal << "\r[" << std::string(of(width), '#') << std::string(width - of(width), ' ') << "] "
              << of(100) << " %" << std::flush;
}

} // namespace Rellinor::Host
