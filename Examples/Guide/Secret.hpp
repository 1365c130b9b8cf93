#pragma once

#include <string_view>
#include <vector>

/// A text of one's own that is overwritten before its memory is given back.
class Secret {
public:
    explicit Secret(std::string_view text) : _bytes(text.begin(), text.end()) {}

    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;

    ~Secret() {
        for (volatile char& byte : _bytes) { // volatile, so that no compiler leaves it out
            byte = 0;
        }
    }

    [[nodiscard]] std::string_view text() const noexcept { return {_bytes.data(), _bytes.size()}; }

private:
    std::vector<char> _bytes;
};
