#include "Private/Proxies/SQLiteTokens.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Rellinor {

namespace {

// The rules are those of https://www.sqlite.org/draft/tokenreq.html.
constexpr std::string_view blanks = " \t\n\v\f\r";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // a blank too

bool belongsToWord(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9') ||
           character == '_' || character == '$' || static_cast<unsigned char>(character) >= 0x80U;
}

char lowerCase(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

class Tokens {
public:
    explicit Tokens(std::string& sql) noexcept : _sql(sql) {}

    std::vector<SQLiteToken> all() {
        while (skip()) {
            add();
        }
        return std::move(_tokens);
    }

private:
    [[nodiscard]] bool isAt(std::string_view text) const noexcept {
        return std::string_view(_sql).substr(_place).starts_with(text);
    }

    /// Goes behind the next such text, or to the end if there is none.
    void goBehind(std::string_view text, std::size_t from) noexcept {
        const std::size_t found = _sql.find(text, from);
        _place = found == std::string::npos ? _sql.size() : found + text.size();
    }

    /// Goes to the next token. False at the end.
    bool skip() noexcept {
        while (_place < _sql.size()) {
            if (isAt("--")) {
                goBehind("\n", _place);
            } else if (isAt("/*")) {
                goBehind("*/", _place + 2);
            } else if (isAt(byteOrderMark)) {
                _place += byteOrderMark.size();
            } else if (blanks.contains(_sql[_place])) {
                ++_place;
            } else {
                return true;
            }
        }
        return false;
    }

    void add() {
        switch (_sql[_place]) {
        case '\'':
            addQuoted('\'', SQLiteToken::Type::text);
            return;
        case '"':
        case '`':
            addQuoted(_sql[_place], SQLiteToken::Type::name);
            return;
        case '[':
            addQuoted(']', SQLiteToken::Type::name);
            return;
        default:
            addWordOrSign();
        }
    }

    void addWordOrSign() {
        const std::size_t begin = _place;
        while (_place < _sql.size() && belongsToWord(_sql[_place])) {
            ++_place;
        }
        const bool isWord = _place > begin;
        _place += isWord ? 0 : 1;
        _tokens.push_back({.content = std::string_view(_sql).substr(begin, _place - begin),
                           .type = isWord ? SQLiteToken::Type::word : SQLiteToken::Type::sign});
    }

    void addQuoted(char end, SQLiteToken::Type type) {
        const std::size_t begin = ++_place;
        std::size_t target = begin;
        while (_place < _sql.size()) {
            const char character = _sql[_place++];
            if (character == end) {
                if (end == ']' || _place == _sql.size() || _sql[_place] != end) {
                    break;
                }
                ++_place; // a doubled quote
            }
            _sql[target++] = character;
        }
        _tokens.push_back(
            {.content = std::string_view(_sql).substr(begin, target - begin), .type = type});
    }

    std::string& _sql;
    std::size_t _place = 0;
    std::vector<SQLiteToken> _tokens;
};

} // namespace

std::vector<SQLiteToken> sqliteTokens(std::string& sql) {
    std::ranges::transform(sql, sql.begin(), lowerCase);
    return Tokens(sql).all();
}

} // namespace Rellinor
