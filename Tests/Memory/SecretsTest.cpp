#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <mutex>
#include <optional>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <Rellinor/Rellinor.hpp>
#include <Rellinor/rellinor.h>
#include <gtest/gtest.h>
#include <sodium.h>

#include "Tests/Memory/MemorySearch.hpp"
#include "Tests/Memory/OwnMemory.hpp"
#include "Tests/Memory/Registers.hpp"
#include "Tests/Memory/Store.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TirelExportInC.hpp"
#include "Tests/Support/Zip.hpp"

// No secret outlives its record, anywhere in the memory of the process: exports full of canaries
// are imported, and all memory is searched for them while the records live and when they are gone.
// This program itself never has a canary.

namespace Rellinor::Tests {

namespace {

/// A thread that does what it is told and stands still in between, so that its stack can be
/// searched, and what its registers were.
class StandingThread {
public:
    StandingThread() {
        ::pthread_attr_t attributes{};
        ::pthread_attr_init(&attributes);
        ::pthread_attr_setstacksize(&attributes, std::size_t{512} * 1024); // quickly searched
        const int failed = ::pthread_create(&_thread, &attributes, start, this);
        ::pthread_attr_destroy(&attributes);
        if (failed != 0) {
            throw std::runtime_error("no thread");
        }
        ask([this] { findStack(); });
    }

    ~StandingThread() {
        ask({});
        ::pthread_join(_thread, nullptr);
    }

    StandingThread(const StandingThread&) = delete;
    StandingThread& operator=(const StandingThread&) = delete;

    /// Lets it do something, and waits until that is done.
    void ask(const std::function<void()>& work) {
        std::unique_lock lock(_mutex);
        _work = &work;
        _changed.notify_all();
        _changed.wait(lock, [this] { return _work == nullptr; });
    }

    [[nodiscard]] std::span<const std::byte> stack() const { return _stack; }

private:
    static void* start(void* thread) {
        static_cast<StandingThread*>(thread)->run();
        return nullptr;
    }

    void run() {
        for (bool isLast = false; !isLast;) {
            std::unique_lock lock(_mutex);
            _changed.wait(lock, [this] { return _work != nullptr; });
            isLast = !*_work;
            if (!isLast) {
                (*_work)();
                keepRegisters();
            }
            _work = nullptr;
            _changed.notify_all();
        }
    }

    void findStack() {
        ::pthread_attr_t attributes{};
        void* begin = nullptr;
        std::size_t size = 0;
        ::pthread_getattr_np(::pthread_self(), &attributes);
        ::pthread_attr_getstack(&attributes, &begin, &size);
        ::pthread_attr_destroy(&attributes);
        _stack = {static_cast<const std::byte*>(begin), size};
    }

    std::mutex _mutex;
    std::condition_variable _changed;
    const std::function<void()>* _work = nullptr;
    std::span<const std::byte> _stack;
    ::pthread_t _thread{};
};

/// What one test leaves in memory is not found by the next.
std::uint32_t families = 0; // NOLINT(*-avoid-non-const-global-variables)

std::set<std::uint32_t> deliveredOf(std::span<const Canary> canaries) {
    std::set<std::uint32_t> numbers;
    for (const Canary& canary : canaries) {
        if (canary.number() < Store::firstLeftOut) {
            numbers.insert(canary.number());
        }
    }
    return numbers;
}

/// How many texts of a large database may remain at most, in what SQLite itself keeps of its file:
/// Documentation/threat-model.md tells what that is. It has many more, and one of ten times its
/// size leaves no more.
constexpr std::size_t mostThatSQLiteKeeps = 300;

/// Whether that is Base64 of our own making, which SQLite never had, in Chrome's database.
bool isBase64OfPassword(std::uint32_t number) {
    return number == 3 || number == 6 ||
           (number >= Store::firstOfPasswords && number < Found::decoded);
}

/// A store by its place among all, and whether it is large.
using Parameter = std::tuple<std::size_t, bool>;

const Store& storeOf(const Parameter& parameter) {
    return allStores()[std::get<std::size_t>(parameter)];
}

class SecretsTest : public testing::TestWithParam<Parameter> {
protected:
    SecretsTest()
        : _family(families++), _canaries(canariesIn(store().contents(isLarge()), _family)),
          _search(_canaries), _path(store().write(_folder, isLarge(), _family)) {}

    [[nodiscard]] static const Store& store() { return storeOf(GetParam()); }

    [[nodiscard]] static bool isLarge() { return std::get<bool>(GetParam()); }

    [[nodiscard]] Found found() const { return _search.search(_thread.stack()); }

    void expectNothing() const {
        const Found left = found();
        EXPECT_TRUE(left.inOwnMemory.empty()) << left;
        EXPECT_TRUE(left.onAStack.empty()) << left;
        EXPECT_TRUE(left.elsewhere.empty()) << left;
        EXPECT_TRUE(store().isDatabase() || left.inSQLite.empty()) << left;
        EXPECT_LE(left.inSQLite.size(), mostThatSQLiteKeeps) << left;
        if (store().source == ImportSource::chrome) {
            EXPECT_TRUE(std::ranges::none_of(left.inSQLite, isBase64OfPassword)) << left;
        }
    }

    /// That the search finds what is there.
    void expectDelivered() const {
        const std::set<std::uint32_t> there = found().anywhere();
        for (const std::uint32_t number : deliveredOf(_canaries)) {
            EXPECT_TRUE(there.contains(number)) << number;
        }
    }

    TemporaryFolder _folder;
    std::uint32_t _family;
    std::vector<Canary> _canaries;
    MemorySearch _search;
    std::string _path;
    StandingThread _thread;
};

TEST_P(SecretsTest, areGoneWithTheirRecords) {
    ASSERT_EQ(found(), Found()) << "this program had the secrets itself";
    RecordsImporter importer;
    std::optional<RecordsResult> result;
    _thread.ask([&] {
        importer.records(URL::fileURLWithPath(_path), store().source,
                         [&](RecordsResult outcome) { result = std::move(outcome); });
    });
    EXPECT_EQ(result->has_value(), store().fate == Fate::imported);
    if (*result) {
        expectDelivered();
    } else {
        const std::string description = result->error().localizedDescription();
        expectNothing(); // in the error neither
    }
    _thread.ask([&] { result.reset(); });
    expectNothing();
}

/// A snapshot is ours, and is overwritten. SQLite keeps the last value of each column, and shorter
/// ones before it.
TEST_P(SecretsTest, areGoneWithTheRecordsOfAnExportThatWasRead) {
    constexpr std::size_t mostThatAStatementKeeps = 8;

    std::optional<ImportedExport> result;
    _thread.ask([&] {
        result = readExport(ExportFile::atPath(_path),
                            {.as = store().source, .onProgress = {}, .limits = {}});
    });
    EXPECT_EQ(result->records.has_value(), store().fate == Fate::imported);
    if (result->records) {
        expectDelivered();
    }
    _thread.ask([&] { result.reset(); });
    expectNothing();
    EXPECT_LE(found().inSQLite.size(), mostThatAStatementKeeps);
}

TEST_P(SecretsTest, areGoneWithTheResultOfTheCInterface) {
    rellinor_importer* const importer = ::rellinor_importer_new();
    rellinor_result* result = nullptr;
    _thread.ask([&] {
        result = ::rellinor_importer_import(importer, _path.c_str(),
                                            static_cast<rellinor_source>(store().source));
    });
    if (::rellinor_result_succeeded(result)) {
        expectDelivered();
    } else {
        expectNothing();
    }
    _thread.ask([&] { ::rellinor_result_free(result); });
    expectNothing();
    ::rellinor_importer_free(importer);
}

TEST_P(SecretsTest, areNowhereOnceAFileIsDetected) {
    _thread.ask([&] { static_cast<void>(detect(ExportFile::atPath(_path))); });
    expectNothing();
}

/// A file of a layout that no source has: an archive, unpacked by zlib, XML, read by Expat, or CSV,
/// read faithfully.
struct LayoutStore {
    std::string_view name;
    Layout layout;
    std::string_view text; ///< a template, of the member in an archive; of XML with braces for tags
    enum class Form : std::uint8_t { archive, xml, csv } form;
};

using enum LayoutStore::Form;

constexpr auto layoutStores = std::to_array<LayoutStore>({
    {.name = "bitwardenZip",
     .layout = Layout::bitwardenZip,
     .text = R"({"folders":[{"id":"<101>","name":"<1n>"}],"items":[{"type":1,"id":"<102u:64>",)"
             R"("name":"<2>","notes":"<3n:20000>","login":{"username":"<4>","password":"<5u:300>",)"
             R"("totp":"<6>","fido2Credentials":["<103:3000>"]},"folderId":"<101>"}]})",
     .form = archive},
    {.name = "bitwardenZipThatIsCut",
     .layout = Layout::bitwardenZip,
     .text = R"({"items":[{"type":1,"name":"<101n>","notes":"<102n:20000>)",
     .form = archive},
    {.name = "keePassXML",
     .layout = Layout::keePassXML,
     .text = "{KeePassFile}{!-- <101:5000> --}{Root}{Group}{Name}<1>{/Name}{Entry}"
             "{String}{Key}Title{/Key}{Value a='<102:300>'}<2>{/Value}{/String}"
             "{String}{Key}Notes{/Key}{Value}<3:20000>&amp;<4>{/Value}{/String}"
             "{String}{Key}<5>{/Key}{Value}{![CDATA[<6:3000>]]}{/Value}{/String}"
             "{UUID}<103>{/UUID}{/Entry}{/Group}{/Root}{/KeePassFile}",
     .form = xml},
    {.name = "keePassXMLThatIsCut",
     .layout = Layout::keePassXML,
     .text = "{KeePassFile}{Root}{Group}{Name}<101>{/Name}{Entry}{Value}<102:20000>",
     .form = xml},
    // Quotes are undone in place, and lines that belong to one row are joined elsewhere.
    {.name = "lastPassCSV",
     .layout = Layout::lastPassCSV,
     .text = "url,username,password,totp,extra,name,grouping,fav,other\n"
             "https://<1>.example,<2>,\"\"\"<3>\"\"\",<4>,\"<5:20000>\n<6>\",<7>,<8>,1,<9>\n"
             "https://a.example,<10>,<11>,,<12:3000>\n<13:3000>,<14>,<15>,0,\n"
             "http://sn,,,,\"NoteType:Credit Card\nNumber:<16>\nNotes:<17:300>\",<18>,,0,\n"
             "http://group,<101>,<102:300>,,<103>,,,,\n"
             "https://b.example,<19>,\"<20>\"x,,,<21>,,,\n",
     .form = csv},
    {.name = "bitwardenCSV",
     .layout = Layout::bitwardenCSV,
     .text = "folder,favorite,type,name,notes,fields,reprompt,login_uri,login_username,"
             "login_password,login_totp\n"
             "<1>,1,login,<2>,<3:300>,\"<4>: <5>\n<6>\",0,https://<7>.example,<8>,<9>,<10>\n",
     .form = csv},
    {.name = "protonPassCSVWhoseHeaderIsCut",
     .layout = Layout::protonPassCSV,
     .text = "type,name,url,<101>\nlogin,<102>,<103:3000>,<104>\n",
     .form = csv},
});

class LayoutSecretsTest : public testing::TestWithParam<LayoutStore> {};

TEST_P(LayoutSecretsTest, areGoneWithTheRecords) {
    if (!isRead(GetParam().layout)) {
        GTEST_SKIP() << "the layout is left out";
    }
    const std::uint32_t family = families++;
    const std::vector<Canary> canaries = canariesIn(GetParam().text, family);
    const MemorySearch search(canaries);
    const TemporaryFolder folder;
    StandingThread thread;
    dieAfter([&] {
        std::string text = expanded(GetParam().text, family);
        if (GetParam().form == xml) {
            std::ranges::replace(text, '{', '<');
            std::ranges::replace(text, '}', '>');
        }
        const ZipFile member{.name = "data.json", .contents = text, .isDeflated = true};
        (void)folder.file("export", GetParam().form == archive ? zipOf({member}) : text);
    });
    std::optional<ImportedExport> result;
    thread.ask([&] {
        result = readExport(ExportFile::atPath(folder / "export"),
                            {.as = GetParam().layout, .onProgress = {}, .limits = {}});
    });
    EXPECT_EQ(result->records.has_value(), !GetParam().name.contains("Cut"));
    if (result->records) {
        const std::set<std::uint32_t> there = search.search(thread.stack()).anywhere();
        for (const std::uint32_t number : deliveredOf(canaries)) {
            EXPECT_TRUE(there.contains(number)) << number;
        }
    }
    thread.ask([&] { result.reset(); });
    EXPECT_EQ(search.search(thread.stack()), Found());
}

/// A small store runs through the same places as a large one.
class SecretsWithoutMemoryTest : public SecretsTest {};

TEST_P(SecretsWithoutMemoryTest, areGoneWhenMemoryRunsOut) {
    RecordsImporter importer;
    const auto import = [&] {
        importer.records(URL::fileURLWithPath(_path), store().source, [](const RecordsResult&) {});
    };
    const std::size_t before = allocationsSoFar();
    _thread.ask(import);
    const std::size_t allocations = allocationsSoFar() - before;
    for (std::size_t nth = 1; nth <= allocations; nth += 1 + allocations / 50) {
        _thread.ask([&] {
            const URL url = URL::fileURLWithPath(_path);
            failAllocationFromNow(nth);
            importer.records(url, store().source, [](const RecordsResult&) {});
            failAllocationFromNow(0);
        });
    }
    expectNothing();
}

/// A file as a host may have it: mapped, so that its text is nowhere else.
class MappedFile {
public:
    explicit MappedFile(const std::string& path) {
        const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC); // NOLINT(*-vararg)
        _size = std::filesystem::file_size(path);
        _bytes = ::mmap(nullptr, _size, PROT_READ, MAP_PRIVATE, descriptor, 0);
        ::close(descriptor);
        if (_bytes == MAP_FAILED) {
            throw std::runtime_error("no mapping");
        }
    }

    ~MappedFile() { ::munmap(_bytes, _size); }

    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    [[nodiscard]] std::string_view text() const {
        return {static_cast<const char*>(_bytes), _size};
    }

private:
    std::size_t _size = 0;
    void* _bytes = nullptr;
};

/// Overwrites texts that may be changed, though nobody offers to.
void overwrite(std::initializer_list<std::string_view> texts) {
    for (const std::string_view text : texts) {
        ::sodium_memzero(const_cast<char*>(text.data()), text.size()); // NOLINT(*-const-cast)
    }
}

void overwrite(TirelExportData& data) {
    for (const auto& login : data.logins) {
        overwrite({login.custName().value_or(""), login.loginName(), login.note(), login.pwd(),
                   login.url()});
    }
    for (const auto& note : data.notes) {
        overwrite({note.label(), note.text()});
    }
    for (const auto& card : data.cards) {
        overwrite({card.cardNumber(), card.custName(), card.holderName(), card.cvv(), card.pin(),
                   card.note()});
    }
}

/// A host that reads and writes a Tirel export by itself.
class TirelSecretsTest : public SecretsTest {};

TEST_P(TirelSecretsTest, areOnlyWhereTheHostCanOverwriteThem) {
    const MappedFile file(_path);
    std::optional<TirelExportData> data;
    std::string text;
    _thread.ask([&] {
        data = TirelExportData::decode(file.text());
        text = data ? data->encode() : "";
    });
    EXPECT_EQ(data.has_value(), store().fate == Fate::imported);
    if (data) {
        expectDelivered();
        overwrite(*data);
        overwrite({text});
    }
    expectNothing();
}

/// What a host in C imported and wrote. The records are gone before the text is.
TEST_P(TirelSecretsTest, areGoneWithWhatTheCInterfaceWrites) {
    TirelExportInC written(nullptr, ::rellinor_tirel_export_free);
    _thread.ask([&] {
        rellinor_importer* const importer = ::rellinor_importer_new();
        rellinor_result* const result =
            ::rellinor_importer_import(importer, _path.c_str(), RELLINOR_SOURCE_TIREL);
        written = tirelExportOf(*result);
        ::rellinor_result_free(result);
        ::rellinor_importer_free(importer);
    });
    if (store().fate == Fate::imported) {
        expectDelivered();
    }
    _thread.ask([&] { written.reset(); });
    expectNothing();
}

std::string nameOf(const testing::TestParamInfo<Parameter>& test) {
    return std::string(storeOf(test.param).name) + (std::get<bool>(test.param) ? "Large" : "");
}

std::vector<std::size_t> storesOfTirel() {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < allStores().size(); ++place) {
        if (allStores()[place].source == ImportSource::tirel) {
            places.push_back(place);
        }
    }
    return places;
}

const auto everyStore = testing::Range<std::size_t>(0, allStores().size());

INSTANTIATE_TEST_SUITE_P(Each, SecretsTest, testing::Combine(everyStore, testing::Bool()), nameOf);
INSTANTIATE_TEST_SUITE_P(Each, LayoutSecretsTest, testing::ValuesIn(layoutStores),
                         [](const testing::TestParamInfo<LayoutStore>& parameter) {
                             return std::string(parameter.param.name);
                         });
INSTANTIATE_TEST_SUITE_P(Each, TirelSecretsTest,
                         testing::Combine(testing::ValuesIn(storesOfTirel()), testing::Bool()),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Each, SecretsWithoutMemoryTest,
                         testing::Combine(everyStore, testing::Values(false)), nameOf);

} // namespace

} // namespace Rellinor::Tests
