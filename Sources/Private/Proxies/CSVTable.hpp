#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

#include "Private/Memory/ImportMemory.hpp"

namespace Rellinor {

// A stand-in.

enum class CSVQuotes : std::uint8_t { doubled, backslashed };

struct CSVDialect {
    char separator = ',';
    CSVQuotes quotes = CSVQuotes::doubled;
};

enum class CSVDamage : std::uint8_t { strayQuote, runOnCell, joinedLines, shortRow, longRow };

class CSVTable {
public:
    using DamageHandler = std::function<void(CSVDamage, std::size_t position)>;

    class Iterator {
    public:
        using value_type = std::span<const std::string_view>;
        using difference_type = std::ptrdiff_t;

        Iterator() = default;

        explicit Iterator(CSVTable& table) : _table(&table) { ++*this; }

        value_type operator*() const { return _table->_row; }

        Iterator& operator++() {
            _hasRow = _table->next();
            return *this;
        }

        void operator++(int) { ++*this; }

        bool operator==(std::default_sentinel_t /*end*/) const { return !_hasRow; }

    private:
        CSVTable* _table = nullptr;
        bool _hasRow = false;
    };

    CSVTable(std::span<char> text, const CSVDialect& dialect, ImportMemory& memory,
             DamageHandler onDamage);

    std::span<const std::string_view> header() const { return _header; }

    Iterator begin() { return Iterator(*this); }

    std::default_sentinel_t end() const { return {}; }

    std::size_t position() const { return _position; }

private:
    bool next();
    bool take();

    std::span<char> _text;
    CSVDialect _dialect;
    DamageHandler _onDamage;
    std::size_t _next = 0;
    std::size_t _position = 0;
    std::vector<std::string_view> _header;
    std::vector<std::string_view> _row;
};

} // namespace Rellinor
