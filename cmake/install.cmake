# cmake --install: the programs with their manual pages and completions, the libraries, the headers below
# include/zelvor/, and what CMake and pkg-config need to find them. Every path is relative to the prefix.
include(CMakePackageConfigHelpers)

# runtime
install(TARGETS TaggerFormatConverter tei2crf RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(DIRECTORY man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime FILES_MATCHING PATTERN "*.1")
install(DIRECTORY completions/ DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT runtime)
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime
    FILES_MATCHING PATTERN "*.md" PATTERN "api" EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime
    USE_SOURCE_PERMISSIONS PATTERN "CMakeLists.txt" EXCLUDE)

# library and development
install(TARGETS zelvor_shared EXPORT zelvor-shared
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(TARGETS zelvor EXPORT zelvor-static ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS zelvor_converter EXPORT zelvor-converter
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY tools training utils
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor COMPONENT development
    FILES_MATCHING PATTERN "*.h"
    PATTERN "tei2crf*" EXCLUDE # of a program; the others are the library's own
    PATTERN "ArpaReader.h" EXCLUDE
    PATTERN "LexicalEntry_tables.h" EXCLUDE
    PATTERN "heap_maps.h" EXCLUDE)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zelvor)
foreach(export zelvor-shared zelvor-static zelvor-converter)
    install(EXPORT ${export} NAMESPACE zelvor:: DESTINATION ${package_dir} COMPONENT development)
endforeach()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelvor-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES cmake/zelvor-config.cmake cmake/FindZelvorDependencies.cmake
    ${PROJECT_BINARY_DIR}/zelvor-config-version.cmake
    DESTINATION ${package_dir} COMPONENT development)

file(RELATIVE_PATH PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(JOIN " " PC_REQUIRES ${ZELVOR_MODULES})
foreach(module zelvor zelvor-converter)
    configure_file(cmake/${module}.pc.in ${module}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${module}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()
