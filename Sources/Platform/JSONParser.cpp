#include "Platform/JSONParser.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/error.hpp>
#include <boost/json/parse_options.hpp>

#include "Platform/JSONNumber.hpp"
#include "Platform/WipedBuffer.hpp"
#include "Platform/WipedStack.hpp"

namespace Rellinor {

namespace {

constexpr std::size_t deepestNesting = 512;

/// What the parser takes of the stack at most within one container: it has a buffer there for texts
/// with escapes.
constexpr std::size_t stackOfText = std::size_t{12} * 1024;

/// Where the stack has grown to. It grows downwards.
[[gnu::always_inline]] inline std::uintptr_t stackFrame() noexcept {
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)); // NOLINT(*-cast)
}

/// Puts together a text that comes in pieces, as one with escapes does.
class PiecedText {
public:
    void append(std::string_view piece) {
        if (piece.size() > _buffer.size() - _size) {
            WipedBuffer larger(std::max(_buffer.size() * 2, _size + piece.size()));
            std::ranges::copy(_buffer.bytes().first(_size), larger.bytes().begin());
            _buffer = std::move(larger);
        }
        std::ranges::copy(piece, _buffer.bytes().subspan(_size).begin());
        _size += piece.size();
    }

    [[nodiscard]] bool isBegun() const noexcept { return _size > 0; }

    /// The whole text, whose last piece this is; it lasts until the next is begun.
    [[nodiscard]] std::string_view endedWith(std::string_view piece) {
        if (_size == 0) {
            return piece;
        }
        append(piece);
        return {_buffer.bytes().data(), std::exchange(_size, 0)};
    }

private:
    WipedBuffer _buffer;
    std::size_t _size = 0;
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

    explicit Handler(JSONEvents& events) noexcept : _events(events) {}

    /// What is given to the parser next.
    void setPiece(std::string_view piece) noexcept { _piece = piece; }

    bool on_document_begin(Error& /*error*/) noexcept { return true; }

    bool on_document_end(Error& /*error*/) noexcept { return true; }

    bool on_object_begin(Error& /*error*/) {
        goDeeper();
        _events.beginObject();
        return true;
    }

    bool on_object_end(std::size_t /*count*/, Error& /*error*/) {
        --_depth;
        _events.endObject();
        return true;
    }

    bool on_array_begin(Error& /*error*/) {
        goDeeper();
        _events.beginArray();
        return true;
    }

    bool on_array_end(std::size_t /*count*/, Error& /*error*/) {
        --_depth;
        _events.endArray();
        return true;
    }

    bool on_key_part(Text piece, std::size_t /*size*/, Error& /*error*/) {
        _text.append(viewOf(piece));
        return true;
    }

    bool on_key(Text piece, std::size_t /*size*/, Error& /*error*/) {
        _events.key(_text.endedWith(viewOf(piece)));
        return true;
    }

    bool on_string_part(Text piece, std::size_t /*size*/, Error& /*error*/) {
        _text.append(viewOf(piece));
        return true;
    }

    bool on_string(Text piece, std::size_t /*size*/, Error& error) {
        if (isOutside(error)) {
            return false;
        }
        const std::string_view last = viewOf(piece);
        if (!_text.isBegun() && isOfPiece(last)) {
            _events.string(last);
        } else {
            _events.decodedString(_text.endedWith(last));
        }
        return true;
    }

    bool on_number_part(Text piece, Error& /*error*/) {
        _text.append(viewOf(piece));
        return true;
    }

    bool on_int64(std::int64_t value, Text /*text*/, Error& error) {
        if (isOutside(error)) {
            return false;
        }
        (void)_text.endedWith({});
        _events.integer(value);
        return true;
    }

    bool on_uint64(std::uint64_t /*value*/, Text text, Error& error) { return number(text, error); }

    // The parser's own value is rounded.
    bool on_double(double /*value*/, Text text, Error& error) { return number(text, error); }

    bool on_bool(bool /*value*/, Error& error) {
        if (isOutside(error)) {
            return false;
        }
        _events.otherValue();
        return true;
    }

    bool on_null(Error& error) {
        if (isOutside(error)) {
            return false;
        }
        _events.null();
        return true;
    }

    /// How far the stack has grown while a container was begun.
    [[nodiscard]] std::uintptr_t endOfStack() const noexcept { return _endOfStack; }

    bool on_comment_part(Text /*piece*/, Error& /*error*/) noexcept { return true; }

    bool on_comment(Text /*piece*/, Error& /*error*/) noexcept { return true; }

private:
    static std::string_view viewOf(Text text) noexcept { return {text.data(), text.size()}; }

    void goDeeper() noexcept {
        ++_depth;
        _endOfStack = std::min(_endOfStack, stackFrame());
    }

    bool number(Text piece, Error& error) {
        if (isOutside(error)) {
            return false;
        }
        if (const auto value = integralValue(_text.endedWith(viewOf(piece)))) {
            _events.integer(*value);
        } else {
            _events.otherValue();
        }
        return true;
    }

    /// Whether a text stands in what is parsed, and not in a buffer of the parser's.
    [[nodiscard]] bool isOfPiece(std::string_view text) const noexcept {
        return std::less_equal{}(_piece.data(), text.data()) &&
               std::less_equal{}(text.data(), _piece.data() + _piece.size());
    }

    /// Whether a single value stands at the top, which is an error.
    bool isOutside(Error& error) const noexcept {
        if (_depth == 0) {
            error = boost::json::error::syntax;
        }
        return _depth == 0;
    }

    JSONEvents& _events;
    PiecedText _text;
    std::string_view _piece;
    std::size_t _depth = 0;
    std::uintptr_t _endOfStack = stackFrame();
};

// NOLINTEND(readability-identifier-naming,readability-convert-member-functions-to-static)

} // namespace

namespace {

/// Kept out of line: what it had on the stack lies beyond the caller's end.
[[gnu::noinline]] bool parse(std::initializer_list<std::string_view> pieces, JSONEvents& events,
                             std::uintptr_t& endOfStack) {
    boost::json::parse_options strict;
    strict.max_depth = deepestNesting;
    boost::json::basic_parser<Handler> parser(strict, events);
    boost::json::error_code error;
    const auto parsePiece = [&](std::string_view piece, bool isLast) {
        parser.handler().setPiece(piece);
        return parser.write_some(!isLast, piece.data(), piece.size(), error) == piece.size() &&
               !error;
    };
    const bool isJSON =
        std::ranges::all_of(pieces,
                            [&](std::string_view piece) { return parsePiece(piece, false); }) &&
        parsePiece({}, true);
    endOfStack = parser.handler().endOfStack();
    return isJSON;
}

} // namespace

bool parseJSON(std::initializer_list<std::string_view> pieces, JSONEvents& events) {
    std::uintptr_t endOfStack = stackFrame();
    const bool isJSON = parse(pieces, events, endOfStack);
    wipeStack(stackFrame() - endOfStack + stackOfText);
    return isJSON;
}

} // namespace Rellinor
