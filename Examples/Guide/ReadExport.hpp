#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

/// Reads any file or folder that is known, and tells what became of it.
inline Rellinor::ImportedExport readAndTell(std::string_view path, const Rellinor::ReadAs& as,
                                            const std::function<bool()>& goesOn,
                                            std::ostream& out) {
    const auto file = Rellinor::ExportFile::atPath(path);
    const Rellinor::Detection found = Rellinor::detect(file);
    if (found.obstacle != Rellinor::FailureReason::none) {
        out << description(found.obstacle) << ' ' << found.advice << '\n';
    }

    Rellinor::ReadOptions options;
    options.as = as; // nothing at all for what was detected
    options.onProgress = [&](const Rellinor::Progress& progress) {
        out << progress.done << " of " << progress.total << '\n';
        return goesOn(); // false cancels
    };
    Rellinor::ImportedExport imported = Rellinor::readExport(file, options);

    const Rellinor::ImportReport& report = imported.report;
    if (!imported.records) {
        out << description(report.failure().reason) << '\n';
        return imported;
    }
    for (const Rellinor::LeftOut& entry : report.leftOut()) {
        out << entry.places.count << " left out: " << description(entry.reason) << '\n';
    }
    for (const Rellinor::Finding& finding : report.findings()) {
        out << finding.places.count << " to look at: " << description(finding.kind) << '\n';
    }
    for (const Rellinor::Unread& unread : report.unread()) {
        out << unread.count << " not read: " << unread.part << '\n';
    }
    for (std::size_t i = 0; i < imported.records->passwords.size(); ++i) {
        for (const Rellinor::Extra& extra : imported.extras.ofPassword(i)) {
            out << "login " << i + 1 << " has a " << identifier(extra.kind) << '\n';
        }
    }
    return imported;
}
