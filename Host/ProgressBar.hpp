#pragma once

#include <chrono>
#include <iosfwd>

#include <Rellinor/ExportReader.hpp>

namespace Rellinor::Host {

/// Shows on a terminal how far a long import has come, from half a second on, and nothing of it in
/// the end.
class ProgressBar {
public:
    /// @param terminal  outlives this
    explicit ProgressBar(std::ostream& terminal) noexcept;
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(const Progress& progress);

private:
    std::ostream& _terminal;
    std::chrono::steady_clock::time_point _begin;
    bool _isShown = false;
};

} // namespace Rellinor::Host
