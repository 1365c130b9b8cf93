#pragma once

#include <unistd.h>

namespace Rellinor::Host {

/// A file descriptor, which closes in the end unless it is the standard input.
class Descriptor {
public:
    explicit Descriptor(long number) noexcept : _number(static_cast<int>(number)) {}

    ~Descriptor() {
        if (_number > STDIN_FILENO) {
            ::close(_number);
        }
    }

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const noexcept { return _number; }

private:
    int _number;
};

} // namespace Rellinor::Host
