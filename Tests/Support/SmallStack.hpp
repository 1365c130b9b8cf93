#pragma once

#include <cstddef>
#include <functional>

namespace Rellinor::Tests {

/// Does some work on a thread with a stack of so many bytes.
void onSmallStack(std::size_t size, const std::function<void()>& work);

} // namespace Rellinor::Tests
