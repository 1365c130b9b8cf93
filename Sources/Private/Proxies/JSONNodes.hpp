#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Platform/WipedBuffer.hpp"
#include "Private/Memory/ChunkedList.hpp"

namespace Rellinor {

/// What a value is, as far as any export asks.
enum class JSONKind : std::uint8_t {
    object,
    objects, ///< an array of nothing but objects, perhaps of none
    array,   ///< an array of anything else
    string,
    integer, ///< a number of an integral value that fits 64 bits
    boolean,
    null,
    other, ///< any other number
    name,  ///< no value, but the name of the member that follows, which is none of the known ones
    link,  ///< no value, but where the next value stands
};

// A union and not a variant: a node takes two words instead of three, and a file may have very many
// nodes. The kind tells which member of the union is set.
// NOLINTBEGIN(*-union-access,*-stringview-data-usage)

/// One value of a parsed JSON text. The values in an object or array stand directly behind its
/// node, each followed by the values that it holds itself.
struct JSONNode {
    union Content {
        const char* characters;  // of a string or name
        std::int64_t integer;    // of an integer; of a boolean 0 or 1
        const JSONNode* behind;  // of an object or array: where its last value has ended
        const JSONNode* onwards; // of a link
    };

    Content content = {.integer = 0};
    std::uint32_t lengthLow = 0;  ///< of a string or name, in bytes
    std::uint16_t lengthHigh = 0; ///< the same, above 32 bits
    std::uint8_t key = 0;         ///< of a member: its place among the known keys, or `noKey`
    JSONKind kind = JSONKind::null;

    /// The key of a member with another name, and of such a name itself.
    static constexpr std::uint8_t noKey = 255;

    /// How long a text can be, in bits.
    static constexpr int bitsOfLength = 48;

    void setText(std::string_view text) noexcept {
        content = {.characters = text.data()};
        lengthLow = static_cast<std::uint32_t>(text.size());
        lengthHigh = static_cast<std::uint16_t>(std::uint64_t{text.size()} >> 32U);
    }

    [[nodiscard]] std::string_view text() const noexcept {
        return {content.characters, std::uint64_t{lengthHigh} << 32U | lengthLow};
    }
};

static_assert(sizeof(JSONNode) == 16);

/// The values of a parsed JSON text in the order of the text. A value stays where it is, and its
/// memory is wiped before it is given back.
///
/// A place is where a value stands or will stand. The last place of a chunk is one too: it leads on
/// to the next chunk once there is one.
class JSONNodes {
public:
    /// Adds a value and returns it.
    ///
    /// @throws std::bad_alloc
    JSONNode& append(const JSONNode& node) {
        if (_nodes.room() <= 1) {
            addChunk();
        }
        return _nodes.appendInRoom(node);
    }

    /// The place of the next value.
    [[nodiscard]] const JSONNode* next() const noexcept { return _nodes.next(); }

    /// The value at a place.
    [[nodiscard]] static const JSONNode& at(const JSONNode* place) noexcept {
        return place->kind == JSONKind::link ? *place->content.onwards : *place;
    }

    /// The place behind a value and all that is in it.
    [[nodiscard]] static const JSONNode* behind(const JSONNode& node) noexcept {
        const bool isContainer = node.kind <= JSONKind::array;
        return isContainer ? node.content.behind : &node + 1;
    }

private:
    void addChunk();

    ChunkedList<JSONNode, WipedBuffer> _nodes;
};

// NOLINTEND(*-union-access,*-stringview-data-usage)

} // namespace Rellinor
