// An archive, member by member and as each of the layouts that are archives.

#include <cstdint>
#include <string>

#include <Rellinor/ExportReader.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Private/Proxies/ZipArchive.hpp"
#include "Tests/Support/Reports.hpp"

namespace Rellinor::Fuzzers {

void fuzz(std::string_view input) {
    constexpr std::uint64_t most = std::uint64_t{1} << 24U;
    constexpr std::size_t sizeOfBeginning = 64;

    const std::string before(input);
    const ExportFile file = ExportFile::inMemory(input, "export.zip");
    ImportMemory memory;
    if (auto archive = ZipArchive::opened(file, input.size(), most)) {
        std::uint64_t unpacked = 0;
        for (const ZipMember& member : archive->members()) {
            expect(member.name.data() >= input.data() &&
                   member.name.data() + member.name.size() <= input.data() + input.size());
            const auto found = memberNamed(member.name, archive->members());
            expect(!found || *found != nullptr);
            const auto beginning = archive->beginning(member, sizeOfBeginning);
            expect(!beginning || beginning->bytes().size() <= sizeOfBeginning);
            if (const auto bytes = archive->read(member, memory)) {
                expect(bytes->size() == member.size);
                expect(
                    !beginning ||
                    std::string_view(bytes->data(), bytes->size()).starts_with(beginning->bytes()));
                unpacked += bytes->size();
            }
        }
        expect(unpacked <= most);
    }
    for (const Layout layout :
         {Layout::onePassword1PUX, Layout::bitwardenZip, Layout::protonPassZip, Layout::dashlaneZip,
          Layout::safariZip, Layout::credentialExchangeJSON}) {
        ReadOptions options;
        options.as = layout;
        options.limits.largestExpansion = most;
        expect(Tests::isConsistent(readExport(file, options)));
    }
    expect(input == before);
}

} // namespace Rellinor::Fuzzers
