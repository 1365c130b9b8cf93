#include "Host/Difference.hpp"

#include <algorithm>
#include <tuple>
#include <vector>

namespace Rellinor::Host {

namespace {

auto fieldsOf(const ImportedPasswordInfoProviding& record) {
    return std::tuple(record.username(), record.password(), record.url(), record.service(),
                      record.color(), record.note(), record.pwdChange());
}

auto fieldsOf(const ImportedNoteInfoProviding& record) {
    return std::tuple(record.color(), record.title(), record.content());
}

auto fieldsOf(const ImportedCardInfoProviding& record) {
    return std::tuple(record.cardNumber(), record.custName(), record.holderName(), record.cvv(),
                      record.pin(), record.note(), record.expirationDay(), record.expirationMonth(),
                      record.expirationYear());
}

auto sorted(const auto& records) {
    std::vector<decltype(fieldsOf(*records.front()))> all;
    all.reserve(records.size());
    for (const auto& record : records) {
        all.push_back(fieldsOf(*record));
    }
    std::ranges::sort(all);
    return all;
}

/// Adds what only one of two lists has.
void compare(const auto& records, const auto& faithful, std::size_t& onlyHere,
             std::size_t& onlyThere) {
    const auto here = sorted(records);
    const auto there = sorted(faithful);
    auto one = here.begin();
    auto other = there.begin();
    while (one != here.end() && other != there.end()) {
        if (*one == *other) {
            ++one;
            ++other;
        } else if (*one < *other) {
            ++one;
            ++onlyHere;
        } else {
            ++other;
            ++onlyThere;
        }
    }
    onlyHere += static_cast<std::size_t>(here.end() - one);
    onlyThere += static_cast<std::size_t>(there.end() - other);
}

} // namespace

Difference differenceOf(const ImportedRecords& records, const ImportedRecords& faithful) {
    std::size_t onlyHere = 0;
    std::size_t onlyThere = 0;
    compare(records.passwords, faithful.passwords, onlyHere, onlyThere);
    compare(records.notes, faithful.notes, onlyHere, onlyThere);
    compare(records.cards, faithful.cards, onlyHere, onlyThere);
    const std::size_t other = std::min(onlyHere, onlyThere);
    return {.more = onlyHere - other, .fewer = onlyThere - other, .other = other};
}

} // namespace Rellinor::Host
