#include "Host/Masking.hpp"

#include <cstddef>
#include <new>
#include <unordered_map>
#include <unordered_set>

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

/// Secrets to look for in other texts.
class SecretTexts {
public:
    explicit SecretTexts(const ImportedExport& faithful) {
        forEachText(*faithful.records, [&](Field field, std::string_view text) {
            add((secretFields & bitOf(field)) != 0 ? text : "");
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
    }

    /// Whether a text holds one of them. One of few letters has to be all of it.
    [[nodiscard]] bool areIn(std::string_view text) {
        const std::string core = coreOf(text);
        if (_short.contains(core)) {
            return true;
        }
        _stepsLeft += 64 * core.size();
        for (std::string_view rest = core; rest.size() >= lengthOfKey; rest.remove_prefix(1)) {
            const auto [begin, end] = _long.equal_range(std::string(rest.substr(0, lengthOfKey)));
            for (auto candidate = begin; candidate != end; ++candidate) {
                // Many that begin alike are made to take time: they count as found.
                if (rest.starts_with(candidate->second) || --_stepsLeft == 0) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    static constexpr std::size_t lengthOfKey = 4;

    void add(std::string_view text) {
        const std::string core = coreOf(text);
        if (core.size() >= lengthOfKey) {
            _long.emplace(core.substr(0, lengthOfKey), core);
        } else if (!core.empty()) {
            _short.insert(core);
        }
    }

    std::unordered_set<std::string> _short;
    std::unordered_multimap<std::string, std::string> _long; // by their first letters
    std::size_t _stepsLeft = std::size_t{1} << 20U;
};

std::uint32_t misplacedFields(const ImportedRecords& records, const ImportedExport& faithful) {
    if (!faithful.records) {
        return allFields;
    }
    SecretTexts secrets(faithful);
    std::uint32_t fields = 0;
    forEachText(records, [&](Field field, std::string_view text) {
        if ((fields & bitOf(field)) == 0 && secrets.areIn(text)) {
            fields |= bitOf(field);
        }
    });
    return fields;
}

} // namespace

Masking::Masking(Secrets secrets, Door door) noexcept : _secrets(secrets) {
    if (secrets == Secrets::masked) {
        _masked = secretFields | (door == Door::second ? notes : 0);
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
