#include "Private/Importers/Dashlane/DashlaneZip.hpp"

#include <algorithm>
#include <array>

#include "Private/Importers/MembersImport.hpp"
#include "Private/Importers/NamedColumnsImporter.hpp"

namespace Rellinor {

namespace {

/// In the order in which they are read.
constexpr std::array<std::string_view, 6> names = {
    "credentials.csv", "securenotes.csv", "payments.csv", "ids.csv", "personalInfo.csv", "wifi.csv",
};

} // namespace

void readDashlaneFiles(const ExportFile& file, RecordsBlock& block, Reporter& reporter) {
    MembersImport import(file, block, reporter);
    bool isAnyRead = false;
    for (const std::string_view name : names) {
        const auto member = memberNamed(name, import.members().all());
        if (!member) {
            reporter.enterMember(name);
            throw ReadError(member.error());
        }
        if (*member != nullptr) {
            import.read(**member, name, NamedColumnsImporter(Layout::dashlaneCSV));
            isAnyRead = true;
        }
    }
    if (!isAnyRead) {
        throw ReadError(FailureReason::wrongShape);
    }
    for (const ZipMember& member : import.members().all()) {
        const bool isKnown =
            std::ranges::any_of(names, [&](std::string_view name) { return member.isNamed(name); });
        if (!isKnown && !member.isFolder()) {
            reporter.unread(otherFilesPart);
        }
    }
}

} // namespace Rellinor
