# Gives every Debian package the documents that it must have, its licences and what changed, and
# compresses manual pages.
# cpack runs this once everything is in its folders.

cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH root)
file(READ "${root}/LICENSE" licence)
file(READ "${root}/THIRD-PARTY.md" third_party)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" upper)
    set(folder "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}/usr/share/doc")
    string(APPEND folder "/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
    file(WRITE "${folder}/copyright" "${licence}\n${third_party}")
    execute_process(
        COMMAND gzip --best --no-name --stdout "${root}/CHANGELOG.md"
        OUTPUT_FILE "${folder}/changelog.gz" COMMAND_ERROR_IS_FATAL ANY)
endforeach()

file(GLOB manuals "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/man/man1/*.1")
execute_process(COMMAND gzip --best --no-name ${manuals} COMMAND_ERROR_IS_FATAL ANY)
