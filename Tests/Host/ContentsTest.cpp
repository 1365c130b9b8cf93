// What the host tool says of a file repeats nothing that the file holds, whatever the source, whole
// and damaged: only what is asked for is shown, and secrets only when they are asked for.

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Host/Source.hpp"
#include "Tests/Host/Tool.hpp"
#include "Tests/Memory/Canary.hpp"
#include "Tests/Memory/Store.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

/// Of a store and a canary in it.
struct Place {
    std::string_view store;
    std::uint32_t canary;

    auto operator<=>(const Place&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Place& place) {
    return out << place.store << " <" << place.canary << '>';
}

/// Finds canaries by any six letters with which one of their pieces begins.
class Marks {
public:
    void add(std::string_view store, const Canary& canary) {
        for (std::size_t begin = 0; begin < canary.length(); begin += sizeOfPiece) {
            std::string mark;
            for (std::size_t index = 0; index < size; ++index) {
                mark += canary.letter(begin + index);
            }
            _places[mark] = {.store = store, .canary = canary.number()};
        }
    }

    /// The canaries in a text, of which JSON may have escaped the letters.
    [[nodiscard]] std::set<Place> in(const std::string& text) const {
        std::set<Place> found;
        for (const std::string& read : {text, unescaped(text)}) {
            for (std::size_t begin = 0; begin + size <= read.size(); ++begin) {
                if (const auto place = _places.find(read.substr(begin, size));
                    place != _places.end()) {
                    found.insert(place->second);
                }
            }
        }
        return found;
    }

private:
    static constexpr std::size_t size = 6;

    static std::string unescaped(std::string text) {
        for (std::size_t at = 0; (at = text.find("\\u00", at)) != std::string::npos; ++at) {
            text.replace(at, 6, 1,
                         static_cast<char>(std::stoi(text.substr(at + 4, 2), nullptr, 16)));
        }
        return text;
    }

    std::unordered_map<std::string, Place> _places;
};

std::string without(std::string text, char character) {
    std::erase(text, character);
    return text;
}

std::string withoutFirstLine(const std::string& text) {
    const std::size_t end = text.find('\n');
    return end == std::string::npos ? "" : text.substr(end + 1);
}

/// A file in which the columns stand as they did, and its beginnings.
std::vector<std::string> beginningsOf(const std::string& file) {
    return {file, file.substr(0, file.size() / 2), file.substr(0, file.size() * 9 / 10)};
}

std::vector<std::string> damagedFrom(const std::string& file) {
    std::string semicolons = file;
    std::ranges::replace(semicolons, ',', ';');
    std::string strange = file;
    strange.insert(strange.size() / 2, "\xFF");
    return {without(file, '"'), without(file, '\n'), withoutFirstLine(file), semicolons, strange};
}

/// The stores of a source, each in a folder of its own, and what was made of them.
class Stores {
public:
    explicit Stores(ImportSource source) : _source(source) {
        std::uint32_t family = 0;
        for (const Store& store : allStores()) {
            ++family;
            if (store.source != source) {
                continue;
            }
            for (const Canary& canary : canariesIn(store.text, family)) {
                _marks.add(store.name, canary);
            }
            const std::string file = fileOf(store, family);
            for (const std::string& bytes : beginningsOf(file)) {
                _beginnings.push_back(written(store, bytes));
            }
            for (const std::string& bytes : damagedFrom(file)) {
                _damaged.push_back(written(store, bytes));
            }
        }
    }

    [[nodiscard]] const Marks& marks() const { return _marks; }

    [[nodiscard]] const std::vector<std::string>& beginnings() const { return _beginnings; }

    [[nodiscard]] std::vector<std::string> everyPath() const {
        std::vector<std::string> paths = _beginnings;
        paths.insert(paths.end(), _damaged.begin(), _damaged.end());
        return paths;
    }

    /// Those that an import delivers as something to be masked.
    [[nodiscard]] std::set<Place> secrets() const {
        std::string texts;
        for (const std::string& path : _beginnings) {
            const Outcome outcome = outcomeOf(_source, path);
            for (const Password& password : outcome.passwords) {
                texts += password.password + '\n';
            }
            for (const Card& card : outcome.cards) {
                texts += card.cardNumber + '\n' + card.cvv + '\n' + card.pin + '\n';
            }
        }
        return _marks.in(texts);
    }

private:
    [[nodiscard]] static std::string fileOf(const Store& store, std::uint32_t family) {
        const TemporaryFolder folder;
        (void)store.write(folder, false, family);
        return contentsOf(folder / store.file);
    }

    [[nodiscard]] std::string written(const Store& store, const std::string& bytes) {
        const TemporaryFolder& folder = _folders.emplace_back();
        std::string path = folder.file(store.file, bytes);
        return store.source == ImportSource::firefox ? folder.path().string() : path;
    }

    ImportSource _source;
    std::deque<TemporaryFolder> _folders;
    std::vector<std::string> _beginnings;
    std::vector<std::string> _damaged;
    Marks _marks;
};

class ContentsTest : public testing::TestWithParam<ImportSource> {
protected:
    /// Made once, since that takes longer than a test.
    [[nodiscard]] static const Stores& stores() {
        static std::map<ImportSource, Stores> all;
        return all.try_emplace(GetParam(), GetParam()).first->second;
    }

    [[nodiscard]] static std::string source() { return std::string(identifier(GetParam())); }

    /// What comes of these arguments and paths, of which each is told something.
    [[nodiscard]] static Ended toldOf(const std::vector<std::string>& paths,
                                      std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), paths.begin(), paths.end());
        Ended ended = rellinor(std::move(arguments));
        EXPECT_GE(linesIn(ended.out + ended.errors), std::ssize(paths));
        return ended;
    }

    static void expectNothing(std::vector<std::string> arguments) {
        const Ended ended = toldOf(stores().everyPath(), std::move(arguments));
        EXPECT_EQ(stores().marks().in(ended.out + ended.errors), std::set<Place>());
    }

    static void expectMasked(const std::string& format) {
        const Ended ended =
            toldOf(stores().beginnings(), {"import", "--source", source(), "--format", format});
        const std::set<Place> shown = stores().marks().in(ended.out);
        EXPECT_FALSE(shown.empty()); // the others are there, and found
        const std::set<Place> secrets = stores().secrets();
        EXPECT_FALSE(secrets.empty());
        for (const Place& secret : secrets) {
            EXPECT_FALSE(shown.contains(secret)) << secret;
        }
        EXPECT_EQ(stores().marks().in(ended.errors), std::set<Place>());
    }
};

TEST_P(ContentsTest, areNotToldByDetect) {
    expectNothing({"detect"});
}

TEST_P(ContentsTest, areNotToldByCheck) {
    expectNothing({"check", "--source", source()});
}

TEST_P(ContentsTest, areNotToldByASummary) {
    expectNothing({"import", "--source", source()});
}

TEST_P(ContentsTest, areMaskedInATableIfTheyAreSecret) {
    expectMasked("table");
}

TEST_P(ContentsTest, areMaskedInJSONIfTheyAreSecret) {
    expectMasked("json");
}

INSTANTIATE_TEST_SUITE_P(Each, ContentsTest,
                         testing::Values(ImportSource::lastPass, ImportSource::dashlane,
                                         ImportSource::keePass, ImportSource::keePassXC,
                                         ImportSource::onePassword, ImportSource::tirel,
                                         ImportSource::firefox, ImportSource::chrome),
                         [](const auto& test) { return std::string(identifier(test.param)); });

} // namespace

} // namespace Rellinor::Tests
