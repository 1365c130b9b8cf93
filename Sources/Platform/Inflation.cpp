#include "Platform/Inflation.hpp"

#include <algorithm>
#include <limits>
#include <new>

#include <zlib.h>

#include "Platform/Fault.hpp"
#include "Platform/WipedHeap.hpp"

namespace Rellinor {

namespace {

void* allocate(void* /*owner*/, unsigned count, unsigned size) noexcept {
    return allocateWiped(std::size_t{count} * size);
}

void release(void* /*owner*/, void* memory) noexcept {
    freeWiped(memory);
}

/// As much of a number of bytes as zlib takes at once.
unsigned portionOf(std::size_t size) noexcept {
    return static_cast<unsigned>(
        std::min<std::size_t>(size, std::numeric_limits<unsigned>::max() / 2));
}

} // namespace

struct Inflation::State {
    ::z_stream stream = {};
    std::string_view rest; // which the stream has not been given
    std::size_t given = 0;
    bool hasEnded = false;
};

Inflation::Inflation(std::string_view packed) : _state(std::make_unique<State>()) {
    _state->rest = packed;
    _state->stream.zalloc = &allocate;
    _state->stream.zfree = &release;
    const int status = ::inflateInit2(&_state->stream, -MAX_WBITS);
    if (status == Z_MEM_ERROR) {
        throw std::bad_alloc();
    }
    require(status == Z_OK);
}

Inflation::~Inflation() {
    (void)::inflateEnd(&_state->stream);
}

std::optional<std::size_t> Inflation::next(std::span<char> target) {
    ::z_stream& stream = _state->stream;
    std::size_t written = 0;
    while (written < target.size() && !_state->hasEnded) {
        if (stream.avail_in == 0) {
            const std::string_view portion = _state->rest.substr(0, portionOf(_state->rest.size()));
            // zlib takes its bytes as unsigned characters, and does not write to them.
            stream.next_in = reinterpret_cast<z_const Bytef*>( // NOLINT(*-cast)
                const_cast<char*>(portion.data()));            // NOLINT(*-const-cast)
            stream.avail_in = static_cast<unsigned>(portion.size());
            _state->given += portion.size();
            _state->rest.remove_prefix(portion.size());
        }
        const unsigned room = portionOf(target.size() - written);
        stream.next_out = reinterpret_cast<Bytef*>(&target[written]); // NOLINT(*-cast)
        stream.avail_out = room;
        const int status = ::inflate(&stream, Z_NO_FLUSH);
        written += room - stream.avail_out;
        if (status == Z_MEM_ERROR) {
            throw std::bad_alloc();
        }
        if (status != Z_OK && status != Z_STREAM_END) {
            return std::nullopt; // damaged, or no more bytes where there have to be some
        }
        _state->hasEnded = status == Z_STREAM_END;
    }
    return written;
}

std::size_t Inflation::used() const noexcept {
    return _state->given - _state->stream.avail_in;
}

std::uint32_t checksumOf(std::string_view bytes) noexcept {
    const auto* const data = reinterpret_cast<const Bytef*>(bytes.data()); // NOLINT(*-cast)
    return static_cast<std::uint32_t>(::crc32_z(0, data, bytes.size()));
}

} // namespace Rellinor
