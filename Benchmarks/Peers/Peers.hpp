#pragma once

#include <vector>

#include "Benchmarks/Contestant.hpp"
#include "Benchmarks/Store.hpp"

namespace Rellinor::Benchmarks {

/// Those who read such a store too, as far as their libraries were there when this was built. Each
/// does what an import does, for files without anything unusual in them, and fills plain structs.
[[nodiscard]] std::vector<Contestant> peersOf(const Store& store);

// Each of them adds itself if it reads such a store.

void addLibCSV(const Store& store, std::vector<Contestant>& peers);
void addNlohmannJSON(const Store& store, std::vector<Contestant>& peers);
void addRapidJSON(const Store& store, std::vector<Contestant>& peers);
void addSQLite(const Store& store, std::vector<Contestant>& peers);
void addSimdjson(const Store& store, std::vector<Contestant>& peers);

} // namespace Rellinor::Benchmarks
