#pragma once

#include <array>
#include <string_view>

// The columns of the CSV exports that an import knows by name, in their order, and those that later
// versions of the products put behind or between them.

namespace Rellinor::Host {

using ColumnName = std::string_view;

inline constexpr std::array<ColumnName, 7> lastPassColumns = {
    "url", "username", "password", "extra", "name", "grouping", "fav"};
inline constexpr std::array<ColumnName, 1> laterLastPassColumns = {"totp"};

inline constexpr std::array<ColumnName, 5> classicKeePassColumns = {
    "Account", "Login Name", "Password", "Web Site", "Comments"};

inline constexpr std::array<ColumnName, 6> keePassXCColumns = {"Group",    "Title", "Username",
                                                               "Password", "URL",   "Notes"};
inline constexpr std::array<ColumnName, 4> laterKeePassXCColumns = {"TOTP", "Icon", "Last Modified",
                                                                    "Created"};

} // namespace Rellinor::Host
