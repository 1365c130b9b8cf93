#include "Host/Masking.hpp"

#include <algorithm>
#include <new>
#include <unordered_map>
#include <utility>

namespace Rellinor::Host {

namespace {

using enum Field;

constexpr std::string_view mask = "********";

constexpr std::uint32_t bitOf(Field field) noexcept {
    return std::uint32_t{1} << static_cast<unsigned>(field);
}

constexpr std::uint32_t secretFields =
    bitOf(loginPassword) | bitOf(cardNumber) | bitOf(cardCVV) | bitOf(cardPIN);
constexpr std::uint32_t notes = bitOf(loginNote) | bitOf(noteContent) | bitOf(cardNote);
constexpr std::uint32_t allFields = ~std::uint32_t{0};

/// Whether an extra is masked like a password.
constexpr bool isSecret(ExtraKind kind) noexcept {
    return kind == ExtraKind::oneTimePassword || kind == ExtraKind::customSecret;
}

void forEachText(const ImportedRecords& records, auto&& visit) {
    for (const auto& login : records.passwords) {
        visit(loginUsername, login->username());
        visit(loginPassword, login->password());
        visit(loginURL, login->url());
        visit(loginService, login->service().value_or(""));
        visit(loginNote, login->note().value_or(""));
    }
    for (const auto& note : records.notes) {
        visit(noteTitle, note->title());
        visit(noteContent, note->content());
    }
    for (const auto& card : records.cards) {
        visit(cardNumber, card->cardNumber());
        visit(cardName, card->custName());
        visit(cardHolder, card->holderName());
        visit(cardCVV, card->cvv());
        visit(cardPIN, card->pin());
        visit(cardNote, card->note());
    }
}

/// A text without what readers differ in: quotes, what escapes them, and blanks.
std::string coreOf(std::string_view text) {
    std::string core(text);
    std::erase_if(core,
                  [](char letter) { return std::string_view("\"\\ \t\r\n").contains(letter); });
    return core;
}

/// The secrets of a reading; for each, whether it is found elsewhere. None yet is.
std::unordered_map<std::string, bool> secretsOf(const ImportedExport& faithful) {
    std::unordered_map<std::string, bool> secrets;
    const auto add = [&](std::string_view text) {
        if (std::string core = coreOf(text); !core.empty()) {
            secrets.emplace(std::move(core), false);
        }
    };
    forEachText(*faithful.records, [&](Field field, std::string_view text) {
        if ((secretFields & bitOf(field)) != 0) {
            add(text);
        }
    });
    const auto addExtras = [&](const auto& records, auto extrasOf) {
        for (std::size_t i = 0; i < records.size(); ++i) {
            for (const Extra& extra : (faithful.extras.*extrasOf)(i)) {
                add(isSecret(extra.kind) ? extra.value : "");
            }
        }
    };
    addExtras(faithful.records->passwords, &Extras::ofPassword);
    addExtras(faithful.records->notes, &Extras::ofNote);
    addExtras(faithful.records->cards, &Extras::ofCard);
    return secrets;
}

std::uint32_t misplacedFields(const ImportedRecords& records, const ImportedExport& faithful) {
    if (!faithful.records) {
        return allFields;
    }
    auto secrets = secretsOf(faithful);
    std::uint32_t fields = 0;
    forEachText(records, [&](Field field, std::string_view text) {
        if (const auto found = secrets.find(coreOf(text)); found != secrets.end()) {
            found->second = true;
            fields |= bitOf(field);
        }
    });
    const bool areAllFound =
        std::ranges::all_of(secrets, [](const auto& secret) { return secret.second; });
    return areAllFound ? fields : allFields;
}

} // namespace

Masking::Masking(Secrets secrets, Door door) noexcept : _secrets(secrets), _masked(0) {
    if (secrets == Secrets::masked) {
        _masked = door == Door::second ? secretFields | notes : secretFields;
    }
}

void Masking::addMisplaced(const ImportedRecords& records, const ExportFile& file) {
    if (_secrets == Secrets::revealed) {
        return;
    }
    try {
        _masked |= misplacedFields(records, readExport(file));
    } catch (const std::bad_alloc&) {
        _masked = allFields;
    }
}

std::string_view Masking::shown(Field field, std::string_view text) const noexcept {
    return masks(field) && !text.empty() ? mask : text;
}

std::optional<std::string_view>
Masking::shown(Field field, const std::optional<std::string_view>& text) const noexcept {
    return text ? std::optional(shown(field, *text)) : std::nullopt;
}

std::string_view Masking::shown(const Extra& extra) const noexcept {
    const bool isMasked = _secrets == Secrets::masked && isSecret(extra.kind);
    return isMasked && !extra.value.empty() ? mask : extra.value;
}

bool Masking::masks(Field field) const noexcept {
    return (_masked & bitOf(field)) != 0;
}

} // namespace Rellinor::Host
