#include "Private/Proxies/SQLiteProgram.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include <sqlite3.h>

namespace Rellinor {

namespace {

/// Instructions that go through tables and indexes, read columns, compare and jump.
constexpr std::array<std::string_view, 41> plainInstructions = {
    "Affinity", "Blob",  "Close",  "Column",   "ColumnsUsed", "DeferredSeek", "Eq",
    "Explain",  "Ge",    "Goto",   "Gt",       "Halt",        "IdxGE",        "IdxGT",
    "IdxLE",    "IdxLT", "If",     "IfNot",    "Init",        "Int64",        "Integer",
    "IsNull",   "Last",  "Le",     "Lt",       "Ne",          "Next",         "Noop",
    "NotNull",  "Null",  "Once",   "OpenRead", "Prev",        "Real",         "ResultRow",
    "Rewind",   "Rowid", "SeekGE", "SeekGT",   "String8",     "Transaction"};

/// A longer program may well compute with what is plain.
constexpr std::int64_t longestPlainProgram = 256;

constexpr std::int64_t weightOfPattern = 128; // which is how long one may be
constexpr std::int64_t weightOfJSON = 32;

constexpr int placeOfName = 1;
constexpr int placeOfOperand = 5;

std::string_view textAt(::sqlite3_stmt* row, int column) {
    const void* const text = ::sqlite3_column_text(row, column);
    return text == nullptr ? "" : static_cast<const char*>(text);
}

bool callsFunction(std::string_view instruction) noexcept {
    return instruction.contains("Func") || instruction.starts_with("Agg");
}

std::int64_t weightOf(std::string_view function) noexcept {
    if (function == "like" || function == "glob") {
        return weightOfPattern;
    }
    return function.starts_with("json") || function.starts_with("->") ? weightOfJSON : 1;
}

void add(SQLiteProgram& program, std::string_view instruction, std::string_view operand) {
    program.isPlain = program.isPlain && program.weight < longestPlainProgram &&
                      std::ranges::find(plainInstructions, instruction) != plainInstructions.end();
    program.readsVirtualTable = program.readsVirtualTable || instruction == "VOpen";
    if (callsFunction(instruction)) {
        const std::string_view name = operand.substr(0, operand.find('(')); // then its arguments
        program.functions.emplace(name);
        program.weight += weightOf(name);
    } else {
        ++program.weight;
    }
}

} // namespace

int readProgram(::sqlite3& connection, std::string_view query, SQLiteProgram& program) {
    const std::string text = "EXPLAIN " + std::string(query);
    ::sqlite3_stmt* prepared = nullptr;
    const int code = ::sqlite3_prepare_v2(&connection, text.c_str(), -1, &prepared, nullptr);
    if (code != SQLITE_OK) {
        return code;
    }
    std::unique_ptr<::sqlite3_stmt, decltype(&::sqlite3_finalize)> statement(prepared,
                                                                             &::sqlite3_finalize);
    program = {};
    while (::sqlite3_step(prepared) == SQLITE_ROW) {
        add(program, textAt(prepared, placeOfName), textAt(prepared, placeOfOperand));
    }
    return ::sqlite3_finalize(statement.release()); // what the last step gave
}

} // namespace Rellinor
