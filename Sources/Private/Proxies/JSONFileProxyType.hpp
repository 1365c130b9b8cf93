#pragma once

#include <concepts>
#include <optional>
#include <utility>

#include "Private/Proxies/JSONDocument.hpp"

namespace Rellinor {

/// What can be made of a JSON document: it names the members that it needs, perhaps how much else,
/// and is absent if the document does not have its shape.
template <typename Type>
concept JSONDecodable = requires(JSONDocument document) {
    { Type::keys } -> std::convertible_to<JSONKeys>;
    { Type::decoded(std::move(document)) } -> std::same_as<std::optional<Type>>;
};

/// A reader of JSON files.
class JSONFileProxyType {
public:
    JSONFileProxyType(const JSONFileProxyType&) = delete;
    JSONFileProxyType& operator=(const JSONFileProxyType&) = delete;

    /// What the file holds; absent if the file cannot be read, is not JSON or has another shape.
    ///
    /// @throws std::bad_alloc
    template <JSONDecodable Type>
    [[nodiscard]] std::optional<Type> containerObject() {
        auto parsed = document(Type::keys, extentOf<Type>());
        return parsed ? Type::decoded(*std::move(parsed)) : std::nullopt;
    }

protected:
    JSONFileProxyType() = default;
    ~JSONFileProxyType() = default;

    /// How much else a type needs.
    template <typename Type>
    [[nodiscard]] static constexpr JSONExtent extentOf() noexcept {
        if constexpr (requires { Type::extent; }) {
            return Type::extent;
        } else {
            return JSONExtent::listsOfObjects;
        }
    }

    /// The file's document; absent if the file cannot be read or is not JSON.
    [[nodiscard]] virtual std::optional<JSONDocument> document(JSONKeys keys,
                                                               JSONExtent extent) = 0;
};

} // namespace Rellinor
