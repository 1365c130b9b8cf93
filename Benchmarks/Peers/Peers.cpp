#include "Benchmarks/Peers/Peers.hpp"

namespace Rellinor::Benchmarks {

std::vector<Contestant> peersOf(const Store& store) {
    std::vector<Contestant> peers;
    addSQLite(store, peers);
#if RELLINOR_PEER_LIBCSV
    addLibCSV(store, peers);
#endif
#if RELLINOR_PEER_SIMDJSON
    addSimdjson(store, peers);
#endif
#if RELLINOR_PEER_RAPIDJSON
    addRapidJSON(store, peers);
#endif
#if RELLINOR_PEER_NLOHMANNJSON
    addNlohmannJSON(store, peers);
#endif
    return peers;
}

} // namespace Rellinor::Benchmarks
