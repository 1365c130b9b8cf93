#pragma once

#include <cstdint>
#include <string_view>

#include <Rellinor/Export.hpp>

namespace Rellinor {

/// What keeps a file from being read. A number keeps its meaning for ever.
enum class FailureReason : std::uint16_t { // NOLINT(performance-enum-size): it grows
    none = 0,
    missing = 1,
    noPermission = 2,
    notAFile = 3,   ///< a device, pipe or socket, or a folder in place of a file
    unreadable = 4, ///< the system reports an error while reading
    notUTF8 = 5,
    utf16 = 6,
    noRows = 7,       ///< nothing but blank lines, or no byte at all
    wrongColumns = 8, ///< the header or the number of columns fits no layout that was asked for
    notJSON = 9,      ///< at the line that `Failure::place` tells
    cutShort = 10,    ///< JSON that ends before it is complete
    nestedTooDeep = 11,
    wrongShape = 12,        ///< JSON of another structure, or a database without the table
    locked = 13,            ///< another program keeps the database to itself
    encrypted = 14,         ///< an encrypted export, or the database of a password manager
    refusedForItsCost = 15, ///< reading would take far more than an honest file of the size
    tooLarge = 16,          ///< beyond a limit of `ReadOptions`
    cancelled = 17,
    outOfMemory = 18,
    unknown = 19,    ///< nothing that this library knows
    notRead = 20,    ///< known, and not read by this version
    notBuiltIn = 21, ///< known, and left out when the library was built
    damaged = 22,    ///< a database or archive that contradicts itself
    noStore = 23,    ///< a folder without anything that can be read
    other = 24,
};

/// One plain English sentence for a reason.
[[nodiscard]] RELLINOR_PUBLIC std::string_view description(FailureReason reason) noexcept;

} // namespace Rellinor
