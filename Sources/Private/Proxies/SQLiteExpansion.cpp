#include "Private/Proxies/SQLiteExpansion.hpp"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace Rellinor {

namespace {

// A level of an expression takes 400 bytes of stack, and a SELECT 500.
constexpr std::size_t mostLevels = 300;
constexpr std::size_t mostSelects = 100;

constexpr double mostColumns = 2000; // which is SQLite's own limit
constexpr double comparisonsForTerm = 64;

/// Words that name nothing.
constexpr std::array<std::string_view, 11> otherWords = {
    "and", "case", "distinct", "else", "from", "in", "is", "not", "null", "or", "when"};

/// Whether the token before a place is one of these words or signs.
bool isBehind(std::span<const SQLiteToken> tokens, std::size_t place,
              std::initializer_list<std::string_view> wordsOrSigns) noexcept {
    return place > 0 && std::ranges::any_of(wordsOrSigns, [&](std::string_view wordOrSign) {
               return tokens[place - 1].is(wordOrSign);
           });
}

/// Whether a token names a table or column: it is neither given as a name, nor a function, nor the
/// table of a column.
bool isNamed(std::span<const SQLiteToken> tokens, std::size_t place) noexcept {
    const bool isFollowed =
        place + 1 < tokens.size() && (tokens[place + 1].is(".") || tokens[place + 1].is("("));
    return tokens[place].isName() && !isFollowed && !isBehind(tokens, place, {"as"});
}

} // namespace

void SQLiteExpansion::add(std::span<const SQLiteToken> tokens) {
    _terms += tokens.size();
    for (std::size_t place = 0; place < tokens.size(); ++place) {
        if (tokens[place].is("select")) {
            addSelect(isBehind(tokens, place, {"union", "all", "except", "intersect"}));
        }
        addSign(tokens, place);
        if (_open.empty()) {
            continue;
        }
        addWord(tokens, place);
        if (isNamed(tokens, place)) {
            addName(tokens[place]);
        }
        ++_open.back().terms;
    }
    while (!_open.empty()) {
        closeLast();
    }
    _brackets = 0;
}

void SQLiteExpansion::addSelect(bool isOfUnion) {
    ++_selects;
    if (_selects > mostSelects) {
        return; // that is enough to know
    }
    std::size_t level = _levels.size();
    if (isOfUnion && !_open.empty() && _open.back().brackets == _brackets) {
        level = _open.back().level;
        closeLast();
    } else {
        _levels.emplace_back();
    }
    _open.push_back({.level = level, .brackets = _brackets});
}

void SQLiteExpansion::addSign(std::span<const SQLiteToken> tokens, std::size_t place) {
    if (tokens[place].is("(")) {
        ++_brackets;
    } else if (tokens[place].is(")")) {
        _brackets -= _brackets > 0 ? 1U : 0U;
        while (!_open.empty() && _open.back().brackets > _brackets) {
            closeLast();
        }
    }
    if (_open.empty()) {
        return;
    }
    Select& select = _open.back();
    if (tokens[place].is("*") && isBehind(tokens, place, {"select", "all", "distinct", ",", "."})) {
        ++select.stars;
        ++_stars;
    } else if (tokens[place].is(",") && !select.isAmongColumns) {
        ++select.tables;
    } else if (tokens[place].is(",") && select.brackets == _brackets) {
        select.mostNamedColumns = std::max(select.mostNamedColumns, select.namedColumns);
        select.namedColumns = 0;
    }
}

void SQLiteExpansion::addWord(std::span<const SQLiteToken> tokens, std::size_t place) {
    const SQLiteToken& token = tokens[place];
    Select& select = _open.back();
    // What follows IS DISTINCT is an expression.
    if (token.is("from") && select.brackets == _brackets &&
        !isBehind(tokens, place, {"distinct"})) {
        select.isAmongColumns = false;
    } else if (token.is("join")) {
        ++select.tables;
    }
    _joinsByName += token.is("natural") || token.is("using") ? 1U : 0U;
}

void SQLiteExpansion::addName(const SQLiteToken& name) {
    if (std::ranges::any_of(otherWords, [&](std::string_view word) { return name.is(word); })) {
        return;
    }
    const std::size_t tables = _names.contains(name.content) ? 1 : 0;
    const std::size_t columns = name.type == SQLiteToken::Type::text ? 0 : 1;
    for (Select& select : _open) {
        select.namedTables += tables;
        select.namedColumns += select.isAmongColumns ? columns : 0;
    }
}

void SQLiteExpansion::closeLast() {
    const Select& select = _open.back();
    const std::size_t columns = std::max(select.mostNamedColumns, select.namedColumns);
    Level& level = _levels[select.level];
    level.copies += static_cast<double>(std::max<std::size_t>(select.namedTables, 1) *
                                        std::max<std::size_t>(columns, 1));
    level.columns += static_cast<double>(1 + select.stars * select.tables);
    level.depth = std::max(level.depth, std::min(deepestExpression, select.terms / 2));
    _open.pop_back();
}

bool SQLiteExpansion::isBounded(std::size_t columns, std::size_t computedTerms) const noexcept {
    auto terms = static_cast<double>(_terms);
    auto width = static_cast<double>(columns);
    std::size_t depth = computedTerms / 2;
    for (const Level& level : _levels) {
        terms *= level.copies;
        width = std::min(width * level.columns, mostColumns);
        depth += level.depth;
    }
    if (_stars + _joinsByName > 0) {
        terms *= width * (1 + static_cast<double>(_joinsByName) * width / comparisonsForTerm);
    }
    return terms <= static_cast<double>(mostTerms) && depth <= mostLevels &&
           _selects <= mostSelects;
}

} // namespace Rellinor
