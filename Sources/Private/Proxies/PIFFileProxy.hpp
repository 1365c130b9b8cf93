#pragma once

#include <cstdint>
#include <string_view>

#include <Rellinor/ExportFile.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Models/JSON.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Proxies/PIFLines.hpp"

namespace Rellinor {

/// The records of a file.
struct PIFRecords {
    JSONDocument document;        ///< a list of objects
    std::uint64_t otherLines = 0; ///< how many lines are neither records nor between two of them
};

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

    /// All records of a file, each with everything in it. Each line that begins with a brace has to
    /// be JSON by itself, and there is at least one if anything is in the file.
    ///
    /// @param keys  the members to keep without their names
    /// @throws PIFParsingError, std::bad_alloc  the position is the number of a record, from 1 on
    [[nodiscard]] static PIFRecords records(const ExportFile& file, JSONKeys keys,
                                            ImportMemory& memory, PIFLines* lines,
                                            std::uint64_t mostBytes);

    /// The object that a JSON text is.
    ///
    /// @param text  outlives what is returned
    /// @throws PIFParsingError, std::bad_alloc
    [[nodiscard]] static JSON json(std::string_view text, JSONKeys keys, ImportMemory& memory);
};

} // namespace Rellinor
