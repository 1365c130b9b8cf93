#include <filesystem>
#include <new>
#include <system_error>

#include <unistd.h>

#include "Host/Detection/Recognisers.hpp"

namespace Rellinor::Host {

namespace {

namespace fs = std::filesystem;

/// A folder of which something in it is to be given instead.
struct Wrapping {
    std::string_view member;
    std::string_view layout;
    std::string_view advice;
};

constexpr Wrapping wrappings[] = {
    {.member = "data.1pif",
     .layout = "1Password export folder",
     .advice = "give the file data.1pif in it"},
    {.member = "Login Data",
     .layout = "Chrome profile folder",
     .advice = "give the file \"Login Data\" in it"},
    {.member = "Default/Login Data",
     .layout = "Chrome folder of profiles",
     .advice = "give the file \"Login Data\" in the folder of a profile, such as Default"},
    {.member = "credentials.csv",
     .layout = "Dashlane export folder",
     .advice = "have rellinor detect look at credentials.csv in it"},
};

/// Whether an import of the folder could open a file of this name.
bool isReadable(const fs::path& file) {
    return ::access(file.c_str(), R_OK) == 0;
}

bool isProfile(const fs::path& folder) {
    return isReadable(folder / "logins.json") || isReadable(folder / "signons.sqlite");
}

/// A profile, by the store that an import takes.
Detection profile(const fs::path& folder) {
    const bool isNewer = isReadable(folder / "logins.json");
    const Detection store =
        detect((folder / (isNewer ? "logins.json" : "signons.sqlite")).string());
    const bool isKnown = store.layout.starts_with("Firefox login");
    const std::string file = isNewer ? "the file logins.json" : "the file signons.sqlite";
    return {.layout = "Firefox profile",
            .source = ImportSource::firefox,
            .confidence = isKnown ? Confidence::certain : Confidence::possible,
            .reason = isKnown ? file : file + ", though it is not as Firefox writes it",
            .advice = {}};
}

/// The first entry of a folder; of none that is absent or cannot be read.
///
/// @throws std::bad_alloc
fs::directory_iterator firstEntry(const fs::path& folder, std::error_code& error) {
    fs::directory_iterator first(folder, error);
    if (error == std::errc::not_enough_memory) {
        throw std::bad_alloc();
    }
    return first;
}

/// How many of the folders in one are profiles.
std::size_t countOfProfiles(const fs::path& folder) {
    constexpr std::size_t most = 10'000; // entries looked at

    std::error_code error;
    std::size_t count = 0;
    std::size_t looked = 0;
    for (auto entry = firstEntry(folder, error);
         !error && entry != fs::directory_iterator() && looked < most;
         entry.increment(error), ++looked) {
        if (isProfile(entry->path())) {
            ++count;
        }
    }
    return count;
}

} // namespace

Detection detectFolder(const fs::path& folder) {
    if (isProfile(folder)) {
        return profile(folder);
    }
    std::error_code error;
    const fs::directory_iterator first = firstEntry(folder, error);
    if (error) {
        return unknown("a folder that cannot be read");
    }
    if (first == fs::directory_iterator()) {
        return unknown("an empty folder");
    }
    for (const Wrapping& wrapping : wrappings) {
        if (fs::is_regular_file(folder / wrapping.member, error)) {
            return notRead(wrapping.layout, Confidence::certain,
                           "the file " + std::string(wrapping.member), wrapping.advice);
        }
    }
    if (countOfProfiles(folder) > 0 || countOfProfiles(folder / "Profiles") > 0) {
        return notRead("Firefox folder of profiles", Confidence::certain,
                       "folders with stores of logins", "give one of the profile folders in it");
    }
    if (fs::exists(folder / "prefs.js", error) || fs::exists(folder / "key4.db", error)) {
        return notRead("Firefox profile without logins", Confidence::likely,
                       "neither logins.json nor signons.sqlite is there",
                       "give the profile folder that has one of them");
    }
    return unknown("a folder with nothing known in it");
}

} // namespace Rellinor::Host
