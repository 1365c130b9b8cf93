#include "Private/Proxies/JSONNodes.hpp"

namespace Rellinor {

void JSONNodes::addChunk() {
    JSONNode* const last = _nodes.room() > 0 ? _nodes.next() : nullptr;
    _nodes.addChunk(2);
    if (last != nullptr) {
        std::construct_at(last,
                          JSONNode{.content = {.onwards = _nodes.next()}, .kind = JSONKind::link});
    }
}

} // namespace Rellinor
