#pragma once

#include <cstdint>
#include <string_view>

#include <Rellinor/ExportFile.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Models/JSON.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Proxies/PIFLines.hpp"

namespace Rellinor {

/// Reads files in the 1Password Interchange Format: text in UTF-8, in which each line that begins
/// with an opening brace is a record, a JSON object of its own. Other lines part the records and
/// say nothing.
class PIFFileProxy {
public:
    /// All records of a file, as the list that is the one member of a JSON object. A record that is
    /// not JSON makes the file fail.
    ///
    /// @param topLevelKey  the name of that member, set into the text as it is
    /// @param keys         the members to keep, `topLevelKey` among them
    /// @param memory       receives the texts; outlives what is returned
    /// @param lines        receives the lines of the records; may be null
    /// @param mostBytes    a larger file is not read
    /// @throws PIFParsingError, std::bad_alloc  the position is the number of a record, from 1 on
    [[nodiscard]] static JSON toJSON(const ExportFile& file, std::string_view topLevelKey,
                                     JSONKeys keys, ImportMemory& memory, PIFLines* lines = nullptr,
                                     std::uint64_t mostBytes = anyNumberOfBytes);

    /// The object that a JSON text is.
    ///
    /// @param text  outlives what is returned
    /// @throws PIFParsingError, std::bad_alloc
    [[nodiscard]] static JSON json(std::string_view text, JSONKeys keys, ImportMemory& memory);
};

} // namespace Rellinor
