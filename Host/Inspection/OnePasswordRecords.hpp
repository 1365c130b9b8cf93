#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "Host/Inspection/Inspection.hpp"
#include "Host/Inspection/JSONTree.hpp"

namespace Rellinor::Host {

/// Tells of the records of a 1PIF file which arrive, why the others do not, and what is lost of
/// those that do.
class OnePasswordRecords {
public:
    /// What is asked for in a record.
    static const JSONWords words;

    /// The records in a document that is an object with the list "records"; absent if it is not one
    /// of nothing but objects.
    [[nodiscard]] static std::optional<JSONValue> listIn(const JSONValue& document) noexcept;

    explicit OnePasswordRecords(Inspection& inspection) noexcept : _inspection(inspection) {}

    /// @param record  of a tree with these words
    /// @param line    on which it begins
    void add(const JSONValue& record, std::size_t line);

    /// To be called behind the last record.
    void finish();

private:
    Inspection& _inspection;
    std::array<std::size_t, 8> _counts = {}; // of records with something that never arrives
};

} // namespace Rellinor::Host
