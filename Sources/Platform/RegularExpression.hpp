#pragma once

#include <memory>
#include <optional>
#include <string_view>

namespace Rellinor {

/// A compiled regular expression in Perl's syntax that disregards case.
///
/// Pattern and text are taken byte by byte, so a pattern of ASCII finds in a UTF-8 text what it
/// finds in its code points.
class RegularExpression {
public:
    /// @param pattern  well-formed ASCII: another one is a fault of the program
    /// @throws std::bad_alloc
    explicit RegularExpression(std::string_view pattern);

    RegularExpression(const RegularExpression&) = delete;
    RegularExpression& operator=(const RegularExpression&) = delete;
    ~RegularExpression();

    /// The first match, as a part of `text`; absent if there is none. Takes no memory from the
    /// second call on.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::optional<std::string_view> firstMatch(std::string_view text);

private:
    struct Compiled;

    std::unique_ptr<Compiled> _compiled;
};

} // namespace Rellinor
