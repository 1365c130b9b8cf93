#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "Private/Importers/OnePassword/OnePasswordCategory.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// What is known of a field besides its value.
struct OnePasswordFieldFacts {
    std::string_view name; ///< empty if it does not tell what the field is
    std::string_view label;
    ExtraKind kind = ExtraKind::customText;
    ItemField field = ItemField::none; ///< if that is told by something else
};

/// What a field of a form or section becomes by its type.
[[nodiscard]] ExtraKind onePasswordKindOf(std::string_view type) noexcept;

/// Puts together what both exports of 1Password have of an entry.
class OnePasswordDecoder {
public:
    OnePasswordDecoder(const OnePasswordCategory& category, VaultItemBuilder& builder) noexcept;

    /// A field of a web form, by what the form says that it is.
    void addFormField(std::string_view designation, std::string_view name, std::string_view type,
                      const JSONValue& value);

    /// A value, or the parts of one that is an object, such as an address.
    void addNamed(const OnePasswordFieldFacts& facts, const JSONValue& value);

    /// The address that an entry is for.
    ///
    /// @param name  of the member; a literal
    void setLocation(const JSONValue& value, std::string_view name);

    /// One of a list of addresses.
    void addAddress(std::string_view label, std::string_view address);

    /// When nothing follows. The location of a login, or the first address, is the address of the
    /// login; the others are further ones.
    void finish();

private:
    void addText(const OnePasswordFieldFacts& facts, std::string_view text);
    [[nodiscard]] bool isRepeated(std::string_view name, std::string_view text);

    const OnePasswordCategory& _category;
    VaultItemBuilder& _builder;
    std::string_view _location;
    std::string_view _nameOfLocation; // a literal
    std::vector<Extra> _addresses;
    std::vector<std::pair<std::string_view, std::string_view>> _seen;
};

} // namespace Rellinor
