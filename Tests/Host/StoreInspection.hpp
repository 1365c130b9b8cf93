#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Rellinor/Rellinor.hpp>

#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// What an inspection says after a real import.
struct Inspected {
    std::optional<std::size_t> delivered; ///< records; absent if the import failed
    Inspection inspection;
};

/// Imports a file or folder and inspects it, and holds the two against each other: what is counted
/// arrives or is left out.
[[nodiscard]] inline Inspected inspected(const std::string& path, ImportSource source) {
    Inspected all;
    RecordsImporter().records(URL::fileURLWithPath(path), source, [&](const RecordsResult& result) {
        if (result) {
            all.delivered = result->passwords.size() + result->notes.size() + result->cards.size();
        }
        all.inspection = inspect(path, source, result);
    });
    if (all.inspection.count) {
        EXPECT_TRUE(all.delivered.has_value());
        EXPECT_EQ(*all.inspection.count,
                  all.delivered.value_or(0) + all.inspection.countOfLeftOut());
    }
    return all;
}

using Texts = std::vector<std::string>;

/// Remarks with their places, such as "2, 5: a folder".
[[nodiscard]] inline Texts texts(const std::vector<Remark>& remarks) {
    Texts all;
    for (const Remark& remark : remarks) {
        std::string& text = all.emplace_back();
        for (const std::size_t place : remark.places) {
            text += (text.empty() ? "" : ", ") + std::to_string(place);
        }
        text += (text.empty() ? "" : ": ") + remark.text;
    }
    return all;
}

} // namespace Rellinor::Host
