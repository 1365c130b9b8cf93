#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"

#include <algorithm>
#include <cstdint>

#include "Platform/JSONParser.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view keyOfLogins = "logins";

class LoginsReader final : public JSONEvents {
public:
    explicit LoginsReader(ImportMemory& memory) noexcept : _memory(memory) {}

    [[nodiscard]] std::vector<FirefoxLoginEntry> take() {
        return _isOfAnotherShape ? std::vector<FirefoxLoginEntry>() : std::move(_entries);
    }

    void beginObject() override {
        switch (place()) {
        case Place::logins:
            _isOfAnotherShape = true;
            break;
        case Place::entry:
            _entries.emplace_back();
            _keysOfEntry = {};
            break;
        case Place::field:
        case Place::elsewhere:
            break;
        }
        ++_depth;
    }

    void endObject() override { --_depth; }

    void beginArray() override {
        switch (place()) {
        case Place::logins:
            _isInLogins = true;
            break;
        case Place::entry:
            _isOfAnotherShape = true;
            break;
        case Place::field:
        case Place::elsewhere:
            break;
        }
        ++_depth;
    }

    void endArray() override {
        --_depth;
        _isInLogins = _isInLogins && _depth > depthOfLogins;
    }

    void key(std::string_view text) override {
        if (_depth == depthOfLogins) {
            _isAtLogins = text == keyOfLogins && !_hasMetLogins;
            _hasMetLogins = _hasMetLogins || _isAtLogins;
        } else if (_isInLogins && _depth == depthOfFields) {
            _field = std::nullopt;
            const auto* const named =
                std::ranges::find(allEncryptedKeys, text, [](auto key) { return rawValue(key); });
            if (named != allEncryptedKeys.end() &&
                !std::exchange(_keysOfEntry[std::to_underlying(*named)], true)) {
                _field = *named;
            }
        }
    }

    void string(std::string_view text) override {
        if (place() == Place::field && _field) {
            _entries.back().set(*_field, _memory.copy(text));
        } else {
            otherValue();
        }
    }

    void otherValue() override {
        if (place() == Place::logins || place() == Place::entry) {
            _isOfAnotherShape = true;
        }
    }

private:
    /// What the next value is.
    enum class Place : std::uint8_t { logins, entry, field, elsewhere };

    static constexpr std::size_t depthOfLogins = 1;
    static constexpr std::size_t depthOfEntries = 2;
    static constexpr std::size_t depthOfFields = 3;

    [[nodiscard]] Place place() const noexcept {
        if (_isAtLogins && _depth == depthOfLogins) {
            return Place::logins;
        }
        if (_isInLogins && _depth == depthOfEntries) {
            return Place::entry;
        }
        return _isInLogins && _depth == depthOfFields ? Place::field : Place::elsewhere;
    }

    ImportMemory& _memory;
    std::vector<FirefoxLoginEntry> _entries;
    std::array<bool, allEncryptedKeys.size()> _keysOfEntry = {}; // those met in the last entry
    std::optional<EncryptedKeys> _field;                         // whose value comes next
    std::size_t _depth = 0;                                      // how many containers are open
    bool _hasMetLogins = false;
    bool _isAtLogins = false; // the value of the first "logins" comes next
    bool _isInLogins = false;
    bool _isOfAnotherShape = false;
};

} // namespace

std::vector<FirefoxLoginEntry> entriesOfLoginsFile(std::string_view text, ImportMemory& memory) {
    LoginsReader reader(memory);
    if (!parseJSON(text, reader)) {
        return {};
    }
    return reader.take();
}

} // namespace Rellinor
