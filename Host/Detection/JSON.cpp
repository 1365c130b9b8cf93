#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/error.hpp>
#include <boost/json/parse_options.hpp>

#include "Host/Detection/Recognisers.hpp"
#include "Host/FileContents.hpp"

namespace Rellinor::Host {

namespace {

/// What of a document tells who wrote it.
struct Members {
    bool logins = false; ///< the lists at the top
    bool notes = false;
    bool cards = false;
    bool nextId = false;            ///< at the top, whatever it is
    bool encryptedPassword = false; ///< of an object in a list at the top
};

// What the parser calls for each part. Its names and arguments are the parser's.
// NOLINTBEGIN(readability-identifier-naming,readability-convert-member-functions-to-static)
class Handler {
public:
    static constexpr std::size_t max_array_size = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_object_size = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_string_size = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_key_size = std::numeric_limits<std::size_t>::max();

    using Error = boost::json::error_code;
    using Text = boost::json::string_view;

    [[nodiscard]] const Members& members() const noexcept { return _members; }

    bool on_document_begin(Error& /*error*/) noexcept { return true; }

    bool on_document_end(Error& /*error*/) noexcept { return true; }

    bool on_object_begin(Error& /*error*/) noexcept {
        ++_depth;
        return true;
    }

    bool on_object_end(std::size_t /*count*/, Error& /*error*/) noexcept {
        --_depth;
        return true;
    }

    bool on_array_begin(Error& /*error*/) noexcept {
        _isList = _isList || _depth == 0;
        if (_depth == 1 && !_isList) {
            _members.logins = _members.logins || _key == "logins";
            _members.notes = _members.notes || _key == "notes";
            _members.cards = _members.cards || _key == "cards";
        }
        ++_depth;
        return true;
    }

    bool on_array_end(std::size_t /*count*/, Error& /*error*/) noexcept {
        --_depth;
        return true;
    }

    bool on_key_part(Text piece, std::size_t /*size*/, Error& /*error*/) {
        take(piece);
        return true;
    }

    bool on_key(Text piece, std::size_t /*size*/, Error& /*error*/) {
        constexpr std::size_t depthInList = 3;

        take(piece);
        _keyHasEnded = true;
        if (!_isList) {
            _members.nextId = _members.nextId || (_depth == 1 && _key == "nextId");
            _members.encryptedPassword = _members.encryptedPassword ||
                                         (_depth == depthInList && _key == "encryptedPassword");
        }
        return true;
    }

    bool on_string_part(Text /*piece*/, std::size_t /*size*/, Error& /*error*/) noexcept {
        return true;
    }

    bool on_string(Text /*piece*/, std::size_t /*size*/, Error& /*error*/) noexcept { return true; }

    bool on_number_part(Text /*piece*/, Error& /*error*/) noexcept { return true; }

    bool on_int64(std::int64_t /*value*/, Text /*text*/, Error& /*error*/) noexcept { return true; }

    bool on_uint64(std::uint64_t /*value*/, Text /*text*/, Error& /*error*/) noexcept {
        return true;
    }

    bool on_double(double /*value*/, Text /*text*/, Error& /*error*/) noexcept { return true; }

    bool on_bool(bool /*value*/, Error& /*error*/) noexcept { return true; }

    bool on_null(Error& /*error*/) noexcept { return true; }

    bool on_comment_part(Text /*piece*/, Error& /*error*/) noexcept { return true; }

    bool on_comment(Text /*piece*/, Error& /*error*/) noexcept { return true; }

private:
    /// Adds a piece to the name, or begins a new one. No more of it is kept than tells it.
    void take(Text piece) {
        constexpr std::size_t longest = 32;

        if (_keyHasEnded) {
            _key.clear();
            _keyHasEnded = false;
        }
        const Text kept = piece.substr(0, longest - std::min(longest, _key.size()));
        _key.append(kept.data(), kept.size());
    }

    Members _members;
    std::string _key;
    bool _keyHasEnded = false;
    bool _isList = false; ///< at the top
    std::size_t _depth = 0;
};

// NOLINTEND(readability-identifier-naming,readability-convert-member-functions-to-static)

struct Document {
    Members members;
    bool isWhole = false;
};

/// Reads the file piece by piece, up to its end or to where it is no JSON any more.
Document read(const std::string& path) {
    constexpr std::size_t deepestNesting = 512; // as deep as an import goes

    boost::json::parse_options strict;
    strict.max_depth = deepestNesting;
    boost::json::basic_parser<Handler> parser(strict);
    boost::json::error_code error;
    std::ifstream file = openedText(path);
    std::string piece(sizeOfBeginning, '\0');
    bool isParsed = true;
    while (isParsed && file) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        const auto size = static_cast<std::size_t>(file.gcount());
        isParsed = parser.write_some(file.good(), piece.data(), size, error) == size && !error;
    }
    // At an exponent that this parser does not take, an import reads on.
    const bool isWhole =
        (isParsed && parser.done()) || error == boost::json::error::exponent_overflow;
    return {.members = parser.handler().members(), .isWhole = isWhole};
}

Detection tirel(bool isWhole) {
    return {.layout = "Tirel export",
            .source = ImportSource::tirel,
            .confidence = isWhole ? Confidence::certain : Confidence::likely,
            .reason = isWhole ? "the lists logins, notes and cards"
                              : "the lists logins, notes and cards, but the JSON is damaged",
            .advice = {}};
}

Detection firefoxStore(const std::string& path) {
    const bool isNamed = std::filesystem::path(path).filename() == "logins.json";
    return {.layout = "Firefox login store (logins.json)",
            .source = std::nullopt,
            .confidence = Confidence::certain,
            .reason = "the list logins as Firefox writes it",
            .advice = std::string(isNamed ? "" : "name it logins.json, and ") +
                      "give the folder that it is in, with --source firefox"};
}

} // namespace

std::optional<Detection> detectJSON(const std::string& path, std::string_view beginning) {
    const std::size_t first = beginning.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos || (beginning[first] != '{' && beginning[first] != '[')) {
        return std::nullopt;
    }
    const auto [members, isWhole] = read(path);
    if (members.logins && members.notes && members.cards) {
        return tirel(isWhole);
    }
    if (members.logins && (members.nextId || members.encryptedPassword)) {
        return firefoxStore(path);
    }
    return std::nullopt;
}

} // namespace Rellinor::Host
