#include "Host/Inspection/SettledDatabase.hpp"

#include <utility>

#include "Host/Counted.hpp"
#include "Host/FileContents.hpp"
#include "Host/Inspection/Settled.hpp"

namespace Rellinor::Host {

namespace {

bool isEmptyFile(const std::string& path) {
    const auto beginning = contentsOf(path, 1);
    return beginning && beginning->empty();
}

} // namespace

void settleDatabase(Inspection& inspection, const std::string& path, const Database& database,
                    std::size_t logins, const RecordsResult& result) {
    const auto addWrong = [&](std::string text) {
        inspection.wrong.push_back({.text = std::move(text), .places = {}});
    };
    if (isEmptyFile(path)) {
        // An import makes an empty file where there is none.
        addWrong("the file is empty: see whether the path is right");
    } else if (database.isDamaged() && logins > 0) {
        addWrong("the database is damaged: only " + counted(deliveredBy(result), "login") +
                 " could be read");
    } else if (!database.problem().empty()) {
        addWrong(std::string(database.problem()));
    } else if (!settleCount(inspection, logins, result) && result) {
        addWrong(
            cannotHaveItsLog(path)
                ? "it cannot be read in a folder that may not be written to: copy it elsewhere"
                : "the database was locked or changed meanwhile: close the browser and try again");
    } else if (hasChangesBeside(path)) {
        addWrong("its latest changes stand in the file -wal beside it: close the browser, or keep "
                 "the two files together");
    }
}

} // namespace Rellinor::Host
