#include "Private/Proxies/JSONNodes.hpp"

#include <algorithm>
#include <memory>

#include "Platform/LargeMemory.hpp"

namespace Rellinor {

namespace {

constexpr std::size_t smallestChunk = std::size_t{4} * 1024;

} // namespace

void JSONNodes::addChunk() {
    const std::size_t size =
        _chunks.empty() ? smallestChunk : std::min(_chunks.back().size() * 2, largePageSize);
    WipedBuffer& chunk = _chunks.emplace_back(size);
    void* const bytes = chunk.bytes().data();
    auto* const nodes = static_cast<JSONNode*>(bytes);
    if (_end != nullptr) {
        std::construct_at(_end, JSONNode{.content = {.onwards = nodes}, .kind = JSONKind::link});
    }
    _next = nodes;
    _end = nodes + size / sizeof(JSONNode) - 1;
}

} // namespace Rellinor
