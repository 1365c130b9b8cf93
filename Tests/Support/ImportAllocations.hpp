#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <Rellinor/Rellinor.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

/// How many times an import of a file of this text asks the heap for memory.
[[nodiscard]] inline std::size_t allocationsOfImport(ImportSource source, std::string_view text) {
    const TemporaryFolder folder;
    const std::string path = folder.file("export", text);
    return allocationsOf([&] {
        RecordsImporter().records(URL::fileURLWithPath(path), source,
                                  [](const RecordsResult& result) { ASSERT_TRUE(result); });
    });
}

} // namespace Rellinor::Tests
