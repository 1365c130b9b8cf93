#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include <Rellinor/Models/ImportSource.hpp>

#include "Tests/Memory/Canary.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

/// How a store fares.
enum class Fate : std::uint8_t {
    imported,
    failed,
};

/// A file full of canaries. Those below `firstLeftOut` are delivered, the others are only in it.
struct Store {
    static constexpr std::uint32_t firstLeftOut = 100;
    static constexpr std::uint32_t firstOfRows = 1000; ///< of a large database
    static constexpr std::uint32_t numberOfRows = 3000;
    static constexpr std::uint32_t firstOfPasswords = 10000; ///< in such rows, where they are bytes

    std::string_view name; ///< of the test
    ImportSource source;
    std::string_view file; ///< its name; of a database, or within the folder of a profile
    std::string_view text; ///< a template of the file, or of the statements that make a database
    std::string_view filler = {}; ///< what is repeated in a large one
    Fate fate = Fate::imported;

    [[nodiscard]] bool isDatabase() const noexcept;

    /// The text, and in a large store much filler.
    [[nodiscard]] std::string contents(bool isLarge) const;

    /// Writes the file, from another process, which has the secrets; returns the path to import.
    ///
    /// @param family  of the canaries
    [[nodiscard]] std::string write(const TemporaryFolder& folder, bool isLarge,
                                    std::uint32_t family) const;
};

/// Of every source and every reader, good and broken ones.
[[nodiscard]] std::span<const Store> allStores();

std::ostream& operator<<(std::ostream& out, const Store& store);

} // namespace Rellinor::Tests
