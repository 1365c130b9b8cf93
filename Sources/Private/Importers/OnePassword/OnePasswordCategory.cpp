#include "Private/Importers/OnePassword/OnePasswordCategory.hpp"

#include <algorithm>
#include <array>

#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using Category = OnePasswordCategory;
using Field = ItemField;
using enum OnePasswordShape;

constexpr auto categories = std::array{
    Category{"webforms.WebForm", "001", "Login", webForm},
    Category{"passwords.Password", "005", "Password", login},
    Category{"securenotes.SecureNote", "003", "Secure Note", note},
    Category{"wallet.financial.CreditCard", "002", "Credit Card", card},
    Category{"identities.Identity", "004", "Identity", other},
    Category{"wallet.financial.BankAccountUS", "101", "Bank Account", other},
    Category{"wallet.computer.License", "100", "Software License", other},
    Category{"wallet.computer.Database", "102", "Database", login},
    Category{"wallet.computer.Router", "109", "Wireless Router", login},
    Category{"wallet.computer.UnixServer", "110", "Server", login},
    Category{"wallet.government.DriversLicense", "103", "Driver License", other},
    Category{"wallet.government.HuntingLicense", "104", "Outdoor License", other},
    Category{"wallet.government.Passport", "106", "Passport", other},
    Category{"wallet.government.SsnUS", "108", "Social Security Number", other},
    Category{"wallet.membership.Membership", "105", "Membership", other},
    Category{"wallet.membership.RewardProgram", "107", "Reward Program", other},
    Category{"wallet.onlineservices.Email.v2", "111", "Email Account", login},
    Category{"wallet.onlineservices.Email", "", "Email Account", login},
    Category{"wallet.onlineservices.FTP", "", "FTP Account", login},
    Category{"wallet.onlineservices.GenericAccount", "", "Generic Account", login},
    Category{"wallet.onlineservices.InstantMessenger", "", "Instant Messenger", login},
    Category{"wallet.onlineservices.ISP", "", "Internet Provider", login},
    Category{"wallet.onlineservices.iTunes", "", "iTunes", login},
    Category{"wallet.onlineservices.DotMac", "", "MobileMe", login},
    Category{"wallet.onlineservices.AmazonS3", "", "Amazon S3", other},
    Category{"", "006", "Document", other},
    Category{"", "112", "API Credential", other},
    Category{"", "113", "Medical Record", other},
    Category{"", "114", "SSH Key", other},
    Category{"", "115", "Crypto Wallet", other},
};

constexpr Category folders{"system.folder.", "", "Folder", folder};
constexpr Category unknownKind{"", "", "unknown kind", other};

struct NamedField {
    std::string_view name;
    Field field = Field::none;
};

constexpr auto fieldsOfLogins = std::array{
    NamedField{"username", Field::username},     NamedField{"password", Field::password},
    NamedField{"pop_username", Field::username}, NamedField{"pop_password", Field::password},
    NamedField{"url", Field::address},
};

constexpr auto fieldsOfCards = std::array{
    NamedField{"cardholder", Field::cardHolder},
    NamedField{"ccnum", Field::cardNumber},
    NamedField{"cvv", Field::cvv},
    NamedField{"pin", Field::pin},
    NamedField{"expiry", Field::expiry},
    NamedField{"expiry_mm", Field::expiryMonth},
    NamedField{"expiry_yy", Field::expiryYear},
};

/// The category that is so named; an empty name is that of none.
const Category& categoryWith(std::string_view Category::* member, std::string_view name) noexcept {
    const auto* const found = std::ranges::find(categories, name, member);
    return !name.empty() && found != categories.end() ? *found : unknownKind;
}

Field fieldNamed(const auto& fields, std::string_view name) noexcept {
    const auto found = std::ranges::find(fields, name, &NamedField::name);
    return found != fields.end() ? found->field : Field::none;
}

} // namespace

const OnePasswordCategory& onePasswordCategoryOf(std::string_view typeName) noexcept {
    if (typeName.starts_with(folders.typeName)) {
        return folders;
    }
    return categoryWith(&Category::typeName, typeName);
}

const OnePasswordCategory& onePasswordCategoryNamed(std::string_view name) noexcept {
    const auto* const found = std::ranges::find_if(categories, [&](const Category& category) {
        return sameIgnoringCase(category.name, name);
    });
    return found != categories.end() ? *found : unknownKind;
}

const OnePasswordCategory& onePasswordCategoryNumbered(std::string_view number) noexcept {
    return categoryWith(&Category::number, number);
}

ItemShape itemShapeOf(OnePasswordShape shape) noexcept {
    switch (shape) {
    case webForm:
    case login:
        return ItemShape::login;
    case note:
        return ItemShape::note;
    case card:
        return ItemShape::card;
    case other:
        return ItemShape::other;
    case folder:
        break;
    }
    return ItemShape::none;
}

ItemField onePasswordFieldOf(OnePasswordShape shape, std::string_view name) noexcept {
    switch (shape) {
    case login:
        return fieldNamed(fieldsOfLogins, name);
    case card:
        return fieldNamed(fieldsOfCards, name);
    default:
        return Field::none;
    }
}

bool isHiddenInOnePassword(std::string_view name) noexcept {
    return name.contains("password") || name.contains("Pin") || name == "pin" || name == "cvv";
}

} // namespace Rellinor
