#pragma once

#include <functional>
#include <memory>
#include <utility>

#include <Rellinor/Rellinor.hpp>

/// Runs work later: on another thread, or on the main one.
using Queue = std::function<void(std::function<void()>)>;

/// Imports on one queue and hands the result over on another.
inline void importRecords(const Rellinor::URL& url, Rellinor::ImportSource source,
                          const Queue& background, const Queue& main,
                          const Rellinor::RecordsCompletion& onComplete) {
    background([=] {
        Rellinor::RecordsImporter importer;
        importer.records(url, source, [&](Rellinor::RecordsResult result) {
            // Queued work may be copied, so the records are moved to where it points.
            const auto kept = std::make_shared<Rellinor::RecordsResult>(std::move(result));
            main([=] { onComplete(std::move(*kept)); });
        });
    });
}
