#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// The names or paths of folders by their identifiers. Of several with one identifier the first
/// counts.
class FolderNames {
public:
    /// @throws std::bad_alloc
    void add(std::string_view identifier, std::string_view name) {
        _folders.emplace(identifier, Folder{.name = name});
    }

    /// Notes that there is an entry in a folder, which any value may tell.
    void use(const JSONValue& identifier) noexcept {
        const auto folder = _folders.find(identifier.text().value_or(""));
        if (folder != _folders.end()) {
            folder->second.isUsed = true;
        }
    }

    /// Tells of the names that no entry brings along.
    void tellUnused(Reporter& reporter) const noexcept {
        for (const auto& [identifier, folder] : _folders) {
            if (!folder.isUsed && !folder.name.empty()) {
                reporter.unread("folders without entries of their own");
            }
        }
    }

    /// Adds the folder that an entry is in.
    ///
    /// @param member  that tells it; a literal
    /// @throws std::bad_alloc
    void addTo(VaultItemBuilder& builder, const JSONValue& identifier,
               std::string_view member) const {
        const auto folder = _folders.find(builder.text(identifier, member));
        if (folder != _folders.end()) {
            builder.addFact(ExtraKind::folder, member, folder->second.name);
        } else {
            builder.passOver(identifier, "folder that is not in the file");
        }
    }

private:
    struct Folder {
        std::string_view name;
        bool isUsed = false;
    };

    std::unordered_map<std::string_view, Folder> _folders;
};

} // namespace Rellinor
