#include "Host/DescriptorBuffer.hpp"

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace Rellinor::Host {

DescriptorBuffer::DescriptorBuffer(int descriptor) noexcept : _descriptor(descriptor) {
    setp(_waiting.data(), _waiting.data() + _waiting.size());
}

DescriptorBuffer::~DescriptorBuffer() {
    close();
}

int DescriptorBuffer::finish() {
    if (drain() && ::fsync(_descriptor) != 0) {
        _failure = errno;
    }
    return _failure;
}

void DescriptorBuffer::close() noexcept {
    if (_descriptor >= 0) {
        ::close(std::exchange(_descriptor, -1));
    }
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type character) {
    if (!drain()) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        sputc(traits_type::to_char_type(character));
    }
    return traits_type::not_eof(character);
}

int DescriptorBuffer::sync() {
    return drain() ? 0 : -1;
}

bool DescriptorBuffer::drain() {
    const char* next = pbase();
    while (_failure == 0 && next < pptr()) {
        const ssize_t count = ::write(_descriptor, next, static_cast<std::size_t>(pptr() - next));
        if (count >= 0) {
            next += count;
        } else if (errno != EINTR) {
            _failure = errno;
        }
    }
    setp(pbase(), epptr());
    return _failure == 0;
}

} // namespace Rellinor::Host
