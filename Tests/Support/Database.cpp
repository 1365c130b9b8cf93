#include "Tests/Support/Database.hpp"

#include <iomanip>
#include <stdexcept>

namespace Rellinor::Tests {

namespace {

Value contentOf(const SQLiteValue& value) {
    if (const auto integer = value.integer()) {
        return *integer;
    }
    if (const auto number = value.number()) {
        return *number;
    }
    if (const auto text = value.text()) {
        return std::string(*text);
    }
    if (const auto blob = value.blob()) {
        return Blob{std::string(blob->begin(), blob->end())};
    }
    if (!value.isAbsent()) {
        throw std::runtime_error("a value has no type");
    }
    return absent;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Blob& blob) {
    return out << "bytes " << std::quoted(blob.bytes);
}

std::vector<Values> copyOf(const SQLiteRows& rows) {
    std::vector<Values> copies;
    for (const SQLiteRow& row : rows) {
        Values& values = copies.emplace_back();
        for (const std::string_view name : row.names()) {
            values[std::string(name)] = contentOf(row[name].value());
        }
    }
    return copies;
}

} // namespace Rellinor::Tests
