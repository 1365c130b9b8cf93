#include "Private/Importers/OnePassword/OnePasswordCategory.hpp"

#include <algorithm>
#include <array>

#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using Category = OnePasswordCategory;
using Field = OnePasswordField;
using enum OnePasswordShape;

constexpr auto categories = std::array{
    Category{"webforms.WebForm", "Login", webForm},
    Category{"passwords.Password", "Password", login},
    Category{"securenotes.SecureNote", "Secure Note", note},
    Category{"wallet.financial.CreditCard", "Credit Card", card},
    Category{"identities.Identity", "Identity", other},
    Category{"wallet.financial.BankAccountUS", "Bank Account", other},
    Category{"wallet.computer.License", "Software License", other},
    Category{"wallet.computer.Database", "Database", login},
    Category{"wallet.computer.Router", "Wireless Router", login},
    Category{"wallet.computer.UnixServer", "Server", login},
    Category{"wallet.government.DriversLicense", "Driver License", other},
    Category{"wallet.government.HuntingLicense", "Outdoor License", other},
    Category{"wallet.government.Passport", "Passport", other},
    Category{"wallet.government.SsnUS", "Social Security Number", other},
    Category{"wallet.membership.Membership", "Membership", other},
    Category{"wallet.membership.RewardProgram", "Reward Program", other},
    Category{"wallet.onlineservices.Email.v2", "Email Account", login},
    Category{"wallet.onlineservices.Email", "Email Account", login},
    Category{"wallet.onlineservices.FTP", "FTP Account", login},
    Category{"wallet.onlineservices.GenericAccount", "Generic Account", login},
    Category{"wallet.onlineservices.InstantMessenger", "Instant Messenger", login},
    Category{"wallet.onlineservices.ISP", "Internet Provider", login},
    Category{"wallet.onlineservices.iTunes", "iTunes", login},
    Category{"wallet.onlineservices.DotMac", "MobileMe", login},
    Category{"wallet.onlineservices.AmazonS3", "Amazon S3", other},
};

constexpr Category folders{"system.folder.", "Folder", folder};
constexpr Category unknownKind{"", "unknown kind", other};

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

Field fieldIn(const auto& fields, std::string_view name) noexcept {
    const auto found = std::ranges::find(fields, name, &NamedField::name);
    return found != fields.end() ? found->field : Field::none;
}

} // namespace

const OnePasswordCategory& onePasswordCategoryOf(std::string_view typeName) noexcept {
    if (typeName.starts_with(folders.typeName)) {
        return folders;
    }
    const auto* const found = std::ranges::find(categories, typeName, &Category::typeName);
    return found != categories.end() ? *found : unknownKind;
}

const OnePasswordCategory& onePasswordCategoryNamed(std::string_view name) noexcept {
    const auto* const found = std::ranges::find_if(categories, [&](const Category& category) {
        return sameIgnoringCase(category.name, name);
    });
    return found != categories.end() ? *found : unknownKind;
}

OnePasswordField onePasswordFieldOf(OnePasswordShape shape, std::string_view name) noexcept {
    switch (shape) {
    case login:
        return fieldIn(fieldsOfLogins, name);
    case card:
        return fieldIn(fieldsOfCards, name);
    default:
        return Field::none;
    }
}

bool isHiddenInOnePassword(std::string_view name) noexcept {
    return name.contains("password") || name.contains("Pin") || name == "pin" || name == "cvv";
}

} // namespace Rellinor
