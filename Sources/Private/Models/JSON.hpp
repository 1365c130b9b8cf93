#pragma once

#include <string_view>
#include <utility>

#include "Private/Proxies/JSONDocument.hpp"

namespace Rellinor {

/// A parsed JSON object, asked for its members by name.
class JSON {
public:
    /// @param document  with an object at its top
    /// @param keys      those with which it was parsed
    JSON(JSONDocument document, JSONKeys keys);

    /// The members.
    [[nodiscard]] JSONObject contents() const noexcept { return *_document.root().object(); }

    /// The value of a member, as a list of dictionaries.
    ///
    /// @throws JSONError  there is no such member, or it is something else
    [[nodiscard]] JSONObjects value(std::string_view forKey) const;

    /// The document, on which what was asked for rests.
    [[nodiscard]] JSONDocument takeDocument() && noexcept { return std::move(_document); }

private:
    JSONDocument _document;
    JSONKeys _keys;
};

} // namespace Rellinor
