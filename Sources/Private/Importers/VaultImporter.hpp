#pragma once

#include <concepts>

#include "Private/Importers/Importer.hpp"
#include "Private/Importers/VaultItemBuilder.hpp"

namespace Rellinor {

/// What knows the layout of a vault of many kinds. It has
///
/// - `RawRecord`, the type of its raw records;
/// - `read(file, memory, reporter)`, as an importer has, but there is always a reporter;
/// - `decode(record, builder)`, which builds the item that a raw record is;
/// - `dateNames`, how it names the parts of a card's date.
template <typename Product>
concept VaultProduct =
    requires(Product& product, const ExportFile& file, ImportMemory& memory, Reporter& reporter,
             const typename Product::RawRecord& record, VaultItemBuilder& builder) {
        product.read(file, memory, reporter);
        { product.decode(record, builder) } -> std::same_as<void>;
        { Product::dateNames } -> std::convertible_to<CardDateNames>;
    };

/// Imports a vault of many kinds faithfully. To be used for one file.
template <VaultProduct Product>
class VaultImporter final {
public:
    using RawRecord = typename Product::RawRecord;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true, .cards = true};

    /// @param memory, reporter  outlive this; there is a reporter
    /// @throws ReadError, PIFParsingError
    [[nodiscard]] auto read(const ExportFile& file, ImportMemory& memory, Reporter* reporter) {
        _memory = &memory;
        _reporter = reporter;
        return _product.read(file, memory, *reporter);
    }

    // An entry is asked first whether it is a password: that decodes the entry for all that is
    // asked of it later.

    [[nodiscard]] bool isPassword(const RawRecord& record) {
        _item = {};
        VaultItemBuilder builder(_item, *_memory, *_reporter);
        _product.decode(record, builder);
        builder.finish();
        return is(ItemShape::login);
    }

    [[nodiscard]] bool isNote(const RawRecord& /*record*/) const noexcept {
        return is(ItemShape::note) || is(ItemShape::other);
    }

    [[nodiscard]] bool isCard(const RawRecord& /*record*/) const noexcept {
        return is(ItemShape::card);
    }

    [[nodiscard]] Built<ImportedPassword>
    buildPassword(const RawRecord& /*record*/) const noexcept {
        return passwordOf(_item);
    }

    [[nodiscard]] Built<ImportedNote> buildNote(const RawRecord& /*record*/) const {
        return noteOf(_item, *_memory, *_reporter);
    }

    [[nodiscard]] Built<ImportedCard> buildCard(const RawRecord& /*record*/) {
        return cardOf(_item, Product::dateNames, *_reporter);
    }

    void addExtras(const RawRecord& /*record*/, ExtrasTable& extras) const {
        if (_item.shape != ItemShape::other) {
            for (const Extra& value : _item.values) {
                extras.add(value.kind, value.label, value.value);
            }
        }
        for (const Extra& fact : _item.facts) {
            extras.add(fact.kind, fact.label, fact.value);
        }
    }

    void tellUnread(const RawRecord& /*record*/, Reporter& reporter) const noexcept {
        for (const std::string_view part : _item.unread) {
            reporter.unread(part);
        }
    }

    [[nodiscard]] Dropped whyNoKind(const RawRecord& /*record*/) const noexcept {
        const bool isLeftOut = _item.shape == ItemShape::none;
        return {.reason = isLeftOut ? _item.reason : LeftOutReason::empty, .field = {}};
    }

private:
    [[nodiscard]] bool is(ItemShape shape) const noexcept {
        return _item.shape == shape && !_item.isEmpty();
    }

    Product _product;
    ImportMemory* _memory = nullptr;
    Reporter* _reporter = nullptr;
    VaultItem _item; // of the current record
};

} // namespace Rellinor
