#pragma once

#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor::Tests {

/// The names of keys, a bar behind each. Expects all keys of their enumeration, in its order.
template <typename Key>
[[nodiscard]] std::string namesInOrder(std::initializer_list<Key> keys) {
    std::string names;
    std::size_t place = 0;
    for (const Key key : keys) {
        EXPECT_EQ(indexOf(key), place++);
        names += std::string(rawValue(key)) + '|';
    }
    return names;
}

} // namespace Rellinor::Tests
