#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

namespace Rellinor {

/// Visits what nests, depth first and each before what it holds, without going deeper on the stack:
/// a host may call from a thread that has little of it.
///
/// @param visit  called with a value and a list, to which it appends what the value holds
/// @throws std::bad_alloc
template <typename Value>
void forEachNested(const Value& first, auto&& visit) {
    std::vector<Value> pending;
    std::vector<Value> held;
    for (visit(first, held); !held.empty() || !pending.empty();) {
        std::ranges::reverse_copy(held, std::back_inserter(pending));
        held.clear();
        const Value next = pending.back();
        pending.pop_back();
        visit(next, held);
    }
}

} // namespace Rellinor
