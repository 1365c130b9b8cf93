#include "Public/C/rellinor.h"

#include <expected>
#include <memory>
#include <string_view>
#include <utility>

#include <Rellinor/Rellinor.hpp>

#include "Private/Errors/ThrownError.hpp"
#include "Public/C/rellinorResult.hpp"

namespace Rellinor {

namespace {

static_assert(RELLINOR_VERSION == std::string_view(RELLINOR_PROJECT_VERSION));

RecordsResult resultOf(RecordsImporter& importer, std::string_view path,
                       rellinor_source source) noexcept {
    if (!isSource(source)) {
        return std::unexpected(unavailableSource);
    }
    try {
        RecordsResult result;
        importer.records(URL::fileURLWithPath(path), static_cast<ImportSource>(source),
                         [&](RecordsResult outcome) { result = std::move(outcome); });
        return result;
    } catch (...) {
        return std::unexpected(thrownError());
    }
}

} // namespace

} // namespace Rellinor

struct rellinor_importer {
    Rellinor::RecordsImporter importer;
};

const char* rellinor_version() {
    return RELLINOR_VERSION;
}

rellinor_importer* rellinor_importer_new() {
    try {
        return std::make_unique<rellinor_importer>().release();
    } catch (...) {
        return nullptr;
    }
}

void rellinor_importer_free(rellinor_importer* importer) {
    delete importer;
}

rellinor_result* rellinor_importer_import(rellinor_importer* importer, const char* path,
                                          rellinor_source source) {
    try {
        Rellinor::NewResult result;
        return result.with({.records = Rellinor::resultOf(importer->importer, path, source),
                            .extras = {},
                            .report = {}});
    } catch (...) {
        return nullptr;
    }
}
