#include "Private/Models/JSON.hpp"

#include <algorithm>
#include <cstddef>

#include "Platform/Fault.hpp"
#include "Private/Proxies/JSONError.hpp"

namespace Rellinor {

JSON::JSON(JSONDocument document, JSONKeys keys) : _document(std::move(document)), _keys(keys) {
    require(_document.root().object().has_value());
}

JSONObjects JSON::value(std::string_view forKey) const {
    const auto place = std::ranges::find(_keys, forKey) - _keys.begin();
    const auto value = contents().valueAt(static_cast<std::size_t>(place));
    if (!value) {
        throw JSONError::valueNotFound(forKey);
    }
    const auto objects = value->objects();
    if (!objects) {
        throw JSONError::invalidValueCast(forKey, "[[String: AnyObject]]");
    }
    return *objects;
}

} // namespace Rellinor
