#include "Private/Proxies/SQLiteSchema.hpp"

#include <algorithm>
#include <functional>
#include <set>
#include <span>
#include <utility>

#include "Private/Proxies/SQLiteExpansion.hpp"

namespace Rellinor {

namespace {

using Tokens = std::span<const SQLiteToken>;

bool isAt(Tokens tokens, std::size_t place, std::string_view wordOrSign) noexcept {
    return place < tokens.size() && tokens[place].is(wordOrSign);
}

/// Where CREATE [TEMPORARY | VIRTUAL] is followed by what is created.
std::size_t placeOfKind(Tokens tokens) noexcept {
    const bool isQualified =
        isAt(tokens, 1, "temp") || isAt(tokens, 1, "temporary") || isAt(tokens, 1, "virtual");
    return isQualified ? 2 : 1;
}

/// Where the name of a table or view stands behind that: [IF NOT EXISTS] [main.]name.
std::size_t placeOfName(Tokens tokens) noexcept {
    std::size_t place = placeOfKind(tokens) + 1;
    place += isAt(tokens, place, "if") && isAt(tokens, place + 1, "not") ? 3U : 0U;
    place += isAt(tokens, place + 1, ".") ? 2U : 0U;
    return place;
}

/// How many terms stand in brackets behind AS: they compute a column.
std::size_t termsBehindAs(Tokens tokens) noexcept {
    std::size_t terms = 0;
    std::size_t brackets = 0;
    for (std::size_t place = 1; place < tokens.size(); ++place) {
        if (tokens[place].is("(") && (brackets > 0 || tokens[place - 1].is("as"))) {
            ++brackets;
        } else if (tokens[place].is(")") && brackets > 0) {
            --brackets;
        }
        terms += brackets > 0 ? 1U : 0U;
    }
    return terms;
}

/// Whether AS at a place is followed by [[NOT] MATERIALIZED] and brackets.
bool isBeforeBrackets(Tokens tokens, std::size_t place) noexcept {
    place += isAt(tokens, place + 1, "not") ? 1U : 0U;
    place += isAt(tokens, place + 1, "materialized") ? 1U : 0U;
    return isAt(tokens, place + 1, "(");
}

/// Adds the names of the tables of WITH clauses: name [(columns)] AS (…).
void addNamesBeforeAs(Tokens tokens, std::set<std::string_view>& names) {
    std::size_t lastOpened = 0; // of the brackets that were closed last
    std::vector<std::size_t> open;
    for (std::size_t place = 0; place < tokens.size(); ++place) {
        if (tokens[place].is("(")) {
            open.push_back(place);
        } else if (tokens[place].is(")") && !open.empty()) {
            lastOpened = open.back();
            open.pop_back();
        } else if (tokens[place].is("as") && isBeforeBrackets(tokens, place) && place > 0) {
            const std::size_t end = tokens[place - 1].is(")") ? lastOpened : place;
            names.insert(tokens[std::max<std::size_t>(end, 1) - 1].content);
        }
    }
}

} // namespace

void SQLiteSchema::add(std::string_view sql) {
    std::string text(sql);
    const std::vector<SQLiteToken> tokens = sqliteTokens(text);
    const std::size_t kind = placeOfKind(tokens);
    const bool isView = isAt(tokens, kind, "view");
    const std::size_t place = placeOfName(tokens);
    if (place >= tokens.size() || (!isView && !isAt(tokens, kind, "table"))) {
        return;
    }
    const std::string_view name = tokens[place].content;
    const std::size_t terms = isView ? 0 : termsBehindAs(tokens);
    const auto isComma = [](const SQLiteToken& token) { return token.is(","); };
    const auto commas = static_cast<std::size_t>(std::ranges::count_if(tokens, isComma));
    _computesStatistics = _computesStatistics || (terms > 0 && name.starts_with("sqlite_stat"));
    _relations.emplace(name, Relation{.view = std::string(isView ? sql : ""),
                                      .columns = commas + 1,
                                      .computedTerms = terms});
}

std::vector<const SQLiteSchema::Relations::value_type*>
SQLiteSchema::relationsOf(std::string_view query) const {
    std::vector<const Relations::value_type*> relations;
    std::set<std::string, std::less<>> names;
    std::vector<std::string_view> texts = {query}; // that are still to be looked through
    while (!texts.empty()) {
        std::string text(texts.back());
        texts.pop_back();
        for (const SQLiteToken& token : sqliteTokens(text)) {
            if (!token.isName() || names.contains(token.content)) {
                continue;
            }
            const auto [first, last] = _relations.equal_range(*names.emplace(token.content).first);
            for (auto relation = first; relation != last; ++relation) {
                relations.push_back(&*relation);
                texts.push_back(relation->second.view);
            }
        }
    }
    return relations;
}

bool SQLiteSchema::isBounded(std::string_view query) const {
    std::size_t columns = 1;
    std::size_t computedTerms = 0;
    std::size_t size = 0;
    std::set<std::string_view> names;
    std::vector<std::string> texts = {std::string(query)};
    for (const auto* const relation : relationsOf(query)) {
        const auto& [name, what] = *relation;
        columns = std::max(columns, what.columns);
        computedTerms += what.computedTerms;
        size += what.view.size();
        if (!what.view.empty()) {
            names.insert(name);
            texts.push_back(what.view);
        }
    }
    if (size > SQLiteExpansion::mostTerms) {
        return false;
    }
    std::vector<std::vector<SQLiteToken>> tokens;
    for (std::string& text : texts) {
        addNamesBeforeAs(tokens.emplace_back(sqliteTokens(text)), names);
    }
    SQLiteExpansion expansion(names);
    for (const std::vector<SQLiteToken>& text : tokens) {
        expansion.add(text);
    }
    return expansion.isBounded(columns, computedTerms);
}

} // namespace Rellinor
