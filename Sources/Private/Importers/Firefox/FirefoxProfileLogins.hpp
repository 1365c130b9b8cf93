#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "Private/Importers/Firefox/FirefoxProfileRecord.hpp"
#include "Private/Proxies/JSONDocument.hpp"
#include "Private/Proxies/SQLiteRows.hpp"

namespace Rellinor {

/// The entries of a login store, in its order, together with what they point into.
class FirefoxProfileLogins {
public:
    /// What is kept of a "logins.json".
    static const JSONKeys keys;
    static constexpr JSONExtent extent = JSONExtent::allLists;

    /// Absent if the document has no object at its top, or no list under "logins".
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] static std::optional<FirefoxProfileLogins> decoded(JSONDocument document);

    /// The rows of "signons.sqlite".
    ///
    /// @throws std::bad_alloc
    explicit FirefoxProfileLogins(SQLiteRows rows);

    FirefoxProfileLogins(FirefoxProfileLogins&&) noexcept = default;
    FirefoxProfileLogins& operator=(FirefoxProfileLogins&&) noexcept = default;
    FirefoxProfileLogins(const FirefoxProfileLogins&) = delete;
    FirefoxProfileLogins& operator=(const FirefoxProfileLogins&) = delete;
    ~FirefoxProfileLogins() = default;

    [[nodiscard]] auto begin() const noexcept { return _records.begin(); }

    [[nodiscard]] auto end() const noexcept { return _records.end(); }

    [[nodiscard]] std::size_t size() const noexcept { return _records.size(); }

    // Whether the file lists these.

    [[nodiscard]] bool hasVulnerablePasswords() const noexcept { return _hasVulnerablePasswords; }

    [[nodiscard]] bool hasDismissedAlerts() const noexcept { return _hasDismissedAlerts; }

private:
    explicit FirefoxProfileLogins(JSONDocument document) : _document(std::move(document)) {}

    std::optional<JSONDocument> _document;
    std::optional<SQLiteRows> _rows;
    std::vector<FirefoxProfileRecord> _records;
    bool _hasVulnerablePasswords = false;
    bool _hasDismissedAlerts = false;
};

} // namespace Rellinor
