#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <Rellinor/Models/ImportedNoteInfoProviding.hpp>

namespace Rellinor {

/// A secure note, as an importer builds it. Its texts belong to the import's memory.
class ImportedNote final : public ImportedNoteInfoProviding {
public:
    ImportedNote(std::optional<std::int64_t> color, std::string_view title,
                 std::string_view content) noexcept
        : _color(color), _title(title), _content(content) {}

    [[nodiscard]] std::optional<std::int64_t> color() const noexcept override { return _color; }

    [[nodiscard]] std::string_view title() const noexcept override { return _title; }

    [[nodiscard]] std::string_view content() const noexcept override { return _content; }

private:
    std::optional<std::int64_t> _color;
    std::string_view _title;
    std::string_view _content;
};

} // namespace Rellinor
