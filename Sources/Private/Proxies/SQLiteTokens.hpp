#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor {

/// A word, name, text or sign of SQL.
struct SQLiteToken {
    enum class Type : std::uint8_t {
        word, ///< a keyword, name or number
        name, ///< in any quotes but those of a text
        text, ///< in single quotes; where a name is wanted, it is one
        sign, ///< one character
    };

    std::string_view content; ///< without quotes, and a quote in it once
    Type type;

    /// Whether this is a word or a sign.
    [[nodiscard]] bool is(std::string_view wordOrSign) const noexcept {
        return (type == Type::word || type == Type::sign) && content == wordOrSign;
    }

    /// Whether this may name a table or column. A keyword may.
    [[nodiscard]] bool isName() const noexcept {
        return type == Type::name || type == Type::text ||
               (type == Type::word && (content[0] < '0' || content[0] > '9'));
    }
};

/// The tokens of a text as SQLite sees them, without blanks and comments. A text that is no SQL has
/// tokens too.
///
/// @param sql  is made lower-case where SQLite does not tell the cases apart, and loses doubled
///             quotes; the tokens point into it
/// @throws std::bad_alloc
[[nodiscard]] std::vector<SQLiteToken> sqliteTokens(std::string& sql);

} // namespace Rellinor
