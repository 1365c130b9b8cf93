// Uses every public name once, and prints how many records a LastPass export holds.

#include <cstddef>
#include <iostream>
#include <memory>

#include <Rellinor/Rellinor.hpp>

namespace {

std::size_t lengthOf(const Rellinor::ImportedRecords& records) {
    std::size_t length = 0;
    for (const auto& password : records.passwords) {
        length += password->username().size() + password->password().size();
        length += password->url().size() + password->service().value_or("").size();
        length += password->note().value_or("").size();
        length += static_cast<std::size_t>(password->color().value_or(0));
        length += static_cast<std::size_t>(password->pwdChange().value_or(0));
    }
    for (const auto& note : records.notes) {
        length += note->title().size() + note->content().size();
        length += static_cast<std::size_t>(note->color().value_or(0));
    }
    for (const auto& card : records.cards) {
        length += card->cardNumber().size() + card->custName().size() + card->holderName().size();
        length += card->cvv().size() + card->pin().size() + card->note().size();
        length += static_cast<std::size_t>(card->expirationDay() + card->expirationMonth() +
                                           card->expirationYear());
    }
    return length;
}

} // namespace

int main(int argc, char* argv[]) {
    const Rellinor::URL url = Rellinor::URL::fileURLWithPath(argc > 1 ? argv[1] : "");
    std::cout << url.path() << ' ' << url.absoluteString() << '\n';

    const std::unique_ptr<Rellinor::RecordsImporting> importer =
        std::make_unique<Rellinor::RecordsImporter>();
    bool succeeded = false;
    const Rellinor::RecordsCompletion onComplete = [&](const Rellinor::RecordsResult& result) {
        succeeded = result.has_value();
        if (result) {
            std::cout << result->passwords.size() << " passwords, " << result->notes.size()
                      << " notes, " << result->cards.size() << " cards, " << lengthOf(*result)
                      << " bytes\n";
        } else {
            std::cout << result.error().domain() << ' ' << result.error().code() << ' '
                      << result.error().userInfo().size() << ' '
                      << result.error().localizedDescription() << '\n';
        }
    };
    importer->records(url, Rellinor::ImportSource::lastPass, onComplete);
    return succeeded ? 0 : 1;
}
