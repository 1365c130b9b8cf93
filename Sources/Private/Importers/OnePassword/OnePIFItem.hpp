#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <Rellinor/Extras.hpp>

#include "Private/Importers/OnePassword/OnePasswordCategory.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/JSONDocument.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// One entry of a 1PIF file, with all that a person has put into it. Its texts stand in the
/// import's memory.
struct OnePIFItem {
    using Fields = std::array<std::string_view, std::to_underlying(OnePasswordField::none)>;

    OnePasswordCategory category;
    bool isTrashed = false; ///< if so, nothing else is read
    std::string_view title;
    std::string_view note;
    Fields fields;
    std::vector<Extra> values;            ///< all other fields
    std::vector<Extra> facts;             ///< addresses, folder, tags, times
    std::vector<std::string_view> unread; ///< the parts that it has and that never arrive; literals

    /// A text that is taken out of the fields.
    [[nodiscard]] std::string_view operator[](OnePasswordField field) const noexcept {
        return fields[std::to_underlying(field)];
    }

    /// Whether a person has put in nothing but where the entry stands.
    [[nodiscard]] bool isEmpty() const noexcept;

    /// The other fields as lines, and the note behind them.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::string_view linesAndNote(ImportMemory& memory) const;
};

/// The titles of folders by their identifiers.
using OnePIFFolders = std::unordered_map<std::string_view, std::string_view>;

/// The members that are looked for by name. A document of entries is parsed with these.
extern const JSONKeys onePIFKeys;

/// Adds the title of an entry that is a folder.
void addFolder(const JSONObject& entry, OnePIFFolders& folders);

/// Decodes an entry. A value of another type than it should have is left out, and is told to the
/// reporter.
///
/// @param item  is overwritten
/// @throws std::bad_alloc
void decode(const JSONObject& entry, const OnePIFFolders& folders, ImportMemory& memory,
            Reporter& reporter, OnePIFItem& item);

} // namespace Rellinor
