#pragma once

#include <utility>

#include "Private/Proxies/JSONDocument.hpp"

namespace Rellinor {

/// A list of objects together with the document that it stands in.
class JSONRecords {
public:
    /// @param records  of that document
    JSONRecords(JSONDocument document, JSONObjects records) noexcept
        : _document(std::move(document)), _records(records) {}

    [[nodiscard]] JSONObjects::Iterator begin() const noexcept { return _records.begin(); }

    [[nodiscard]] JSONObjects::Iterator end() const noexcept { return _records.end(); }

private:
    JSONDocument _document;
    JSONObjects _records;
};

} // namespace Rellinor
