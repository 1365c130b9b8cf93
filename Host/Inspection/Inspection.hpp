#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Host {

/// Something to know about a file, and where in it. It tells nothing of the contents.
struct Remark {
    std::string text;
    std::vector<std::size_t> places; ///< ascending, counted from 1; empty for the whole file
};

/// What an import of a file leaves out, and what is wrong with the file.
struct Inspection {
    std::string_view unit = "row";    ///< what the file holds one after the other
    std::string_view place = "line";  ///< what the places count
    std::optional<std::size_t> count; ///< how many units there are; absent if that is not known
    std::vector<Remark> leftOut;      ///< units that do not arrive, by the reason
    std::vector<Remark> wrong;        ///< what looks like damage, or fails the import
    std::vector<Remark> notImported;  ///< parts of the units that never arrive

    /// Adds a place to the remark of that text in a list, which may be new.
    static void add(std::vector<Remark>& remarks, std::string_view text, std::size_t place);

    /// How many units are left out.
    [[nodiscard]] std::size_t countOfLeftOut() const noexcept;
};

/// Looks at the file or folder at `path`, and changes nothing there.
///
/// @param path    with no `obstacle` to that; what is in the way of a file is not told here
/// @param result  what importing it as `source` gave
[[nodiscard]] Inspection inspect(const std::string& path, ImportSource source,
                                 const RecordsResult& result);

} // namespace Rellinor::Host
