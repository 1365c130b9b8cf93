#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Private/Importers/Tirel/TirelExportMember.hpp"
#include "Private/Text/JSONWriter.hpp"

namespace Rellinor {

// The entries of a Tirel export as views: what `TirelExportData` and `rellinor_tirel_data` have in
// common.

struct TirelLoginView {
    std::int64_t color;
    std::optional<std::string_view> custName;
    std::string_view loginName;
    std::string_view note;
    std::string_view pwd;
    std::optional<std::int64_t> pwdChange;
    std::string_view url;
};

struct TirelNoteView {
    std::int64_t color;
    std::string_view label;
    std::string_view text;
};

struct TirelCardView {
    std::string_view cardNumber;
    std::string_view custName;
    std::string_view holderName;
    std::string_view cvv;
    std::string_view pin;
    std::string_view note;
    std::int64_t expirationDay;
    std::int64_t expirationMonth;
    std::int64_t expirationYear;
};

/// Writes one Tirel export, as `TirelExportData::encode` describes it. The one writer of the format
/// in the library.
class TirelExportWriter {
public:
    /// Writes the whole export, from ranges of views. To be called once.
    ///
    /// @throws std::bad_alloc
    void write(const auto& logins, const auto& notes, const auto& cards) {
        _json.beginObject();
        list(TirelExportMember::logins, logins);
        list(TirelExportMember::notes, notes);
        list(TirelExportMember::cards, cards);
        _json.endObject();
    }

    /// The text of the export. It is wiped with the writer.
    [[nodiscard]] std::string_view written() noexcept { return _json.written(); }

private:
    void list(TirelExportMember key, const auto& entries) {
        _json.key(rawValue(key));
        _json.beginArray();
        for (const auto entry : entries) {
            write(entry);
        }
        _json.endArray();
    }

    void write(const TirelLoginView& entry);
    void write(const TirelNoteView& entry);
    void write(const TirelCardView& entry);
    void member(TirelExportMember key, std::string_view value);
    void member(TirelExportMember key, std::int64_t value);
    void memberIfPresent(TirelExportMember key, const auto& value);

    JSONWriter _json;
};

} // namespace Rellinor
