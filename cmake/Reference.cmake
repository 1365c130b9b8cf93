# The reference of the public headers: cmake --build --preset gcc-release --target reference
# A warning fails it, and so does anything public that says nothing about itself.

if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()
find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(DOXYGEN_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/Reference")
set(DOXYGEN_STRIP_FROM_PATH "${PROJECT_BINARY_DIR}/include")
set(DOXYGEN_FULL_PATH_NAMES YES)
set(DOXYGEN_SHOW_INCLUDE_FILES NO)
set(DOXYGEN_VERBATIM_HEADERS NO)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_HAVE_DOT NO)

set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_WARN_NO_PARAMDOC NO) # a name that says it all needs no sentence
set(DOXYGEN_EXTRACT_ALL NO)

set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_AUTOLINK_SUPPORT YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED
    "RELLINOR_PUBLIC=" "RELLINOR_VISIBLE=" "RELLINOR_OWNED=" "RELLINOR_NULLABLE="
    "RELLINOR_ENUM(name)=enum name")

set(DOXYGEN_INCLUDE_PATH "${PROJECT_BINARY_DIR}/include")
set(DOXYGEN_EXPAND_AS_DEFINED RELLINOR_LAYOUTS RELLINOR_LAYOUT_CASE RELLINOR_LAYOUT_NUMBER)
list(FILTER reference_headers EXCLUDE REGEX "\\.modulemap$")
doxygen_add_docs(reference ${reference_headers}
    WORKING_DIRECTORY "${PROJECT_BINARY_DIR}/include"
    COMMENT "Making the reference of the public headers")
