# The libraries whose readers are compared with imports. Scripts/install-dependencies benchmark
# installs them; what is missing is left out.

find_path(RELLINOR_LIBCSV_HEADERS csv.h)
find_library(RELLINOR_LIBCSV_LIBRARY csv)
mark_as_advanced(RELLINOR_LIBCSV_HEADERS RELLINOR_LIBCSV_LIBRARY)
if(RELLINOR_LIBCSV_HEADERS AND RELLINOR_LIBCSV_LIBRARY AND NOT TARGET RellinorLibCSV)
    add_library(RellinorLibCSV INTERFACE IMPORTED)
    target_include_directories(RellinorLibCSV INTERFACE "${RELLINOR_LIBCSV_HEADERS}")
    target_link_libraries(RellinorLibCSV INTERFACE "${RELLINOR_LIBCSV_LIBRARY}")
endif()

find_package(simdjson QUIET)

# Clang 19 does not take its released headers.
include(CheckCXXSourceCompiles)
find_path(RELLINOR_RAPIDJSON_HEADERS rapidjson/document.h)
mark_as_advanced(RELLINOR_RAPIDJSON_HEADERS)
if(RELLINOR_RAPIDJSON_HEADERS)
    set(CMAKE_REQUIRED_INCLUDES "${RELLINOR_RAPIDJSON_HEADERS}")
    set(CMAKE_REQUIRED_QUIET ON)
    check_cxx_source_compiles(
        "#include <rapidjson/document.h>\nint main() { rapidjson::Document document; }"
        RELLINOR_RAPIDJSON_COMPILES)
    unset(CMAKE_REQUIRED_INCLUDES)
    unset(CMAKE_REQUIRED_QUIET)
endif()
if(RELLINOR_RAPIDJSON_COMPILES AND NOT TARGET RellinorRapidJSON)
    add_library(RellinorRapidJSON INTERFACE IMPORTED)
    target_include_directories(RellinorRapidJSON INTERFACE "${RELLINOR_RAPIDJSON_HEADERS}")
endif()

find_package(nlohmann_json QUIET)

# peer(NAME TARGET CONTESTANT...): adds Peers/NAME.cpp, which has these contestants, if there is the
# library that it needs.
set(peers "")
set(missing_peers "")
function(peer name target)
    string(TOUPPER "RELLINOR_PEER_${name}" definition)
    if(TARGET ${target})
        target_sources(rellinor-compare PRIVATE "Peers/${name}.cpp")
        target_link_libraries(rellinor-compare PRIVATE ${target})
        target_compile_definitions(rellinor-compare PRIVATE ${definition}=1)
        set(peers ${peers} ${ARGN} PARENT_SCOPE)
    else()
        target_compile_definitions(rellinor-compare PRIVATE ${definition}=0)
        set(missing_peers ${missing_peers} ${name} PARENT_SCOPE)
    endif()
endfunction()

peer(LibCSV RellinorLibCSV libcsv)
peer(NlohmannJSON nlohmann_json::nlohmann_json nlohmann-json)
peer(RapidJSON RellinorRapidJSON rapidjson)
peer(Simdjson simdjson::simdjson simdjson-dom simdjson-ondemand)

if(missing_peers)
    list(JOIN missing_peers ", " names)
    message(STATUS "rellinor-compare does without ${names}, which this compiler cannot find or take: "
        "Scripts/install-dependencies benchmark installs the libraries")
endif()
