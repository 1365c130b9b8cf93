#include "Private/Proxies/JSONNodes.hpp"

#include <cstddef>
#include <string_view>

#include <gtest/gtest.h>
#include <sys/mman.h>

namespace Rellinor::Tests {

namespace {

TEST(JSONNodesTest, holdATextOfMoreThanFourGigabytes) {
    // Addresses alone, without memory behind them.
    constexpr std::size_t size = (std::size_t{4} << 30U) + 5;
    void* const reserved =
        ::mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(reserved, MAP_FAILED); // NOLINT(*-cstyle-cast,*-int-to-ptr)
    const std::string_view text(static_cast<const char*>(reserved), size);

    JSONNode node;
    node.setText(text);
    EXPECT_EQ(static_cast<const void*>(node.text().data()), reserved);
    EXPECT_EQ(node.text().size(), size);
    EXPECT_EQ(::munmap(reserved, size), 0);
}

} // namespace

} // namespace Rellinor::Tests
