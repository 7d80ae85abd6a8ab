# make package: the Debian packages zelvor, libzelvor0.1, libzelvor-dev and python3-zelvor. The build must have been
# configured with the prefix /usr, as the preset package does.
set(ZELVOR_MAINTAINER "The zelvor developers <zelvor@localhost>" CACHE STRING "Who makes the packages: name <mail>")
set(library_package libzelvor${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvor)
set(CPACK_PACKAGE_CONTACT "${ZELVOR_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime library development)
if(TARGET zelvor_python)
    list(APPEND CPACK_COMPONENTS_ALL python)
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME zelvor)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION text)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS python3) # the scripts in examples/training
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/cmake/debian/postinst;${PROJECT_SOURCE_DIR}/cmake/debian/postrm")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"convert TEI training corpora for CRF taggers
Writes the training data of part-of-speech and morphology taggers from
annotated TEI texts and a lexicon, Latin first: tei2crf makes one file, with
a report of what was left out; TaggerFormatConverter writes two streams.")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS wordnet-base)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
"lexical entries of Latin and English, and text utilities
Reads, writes, generates and merges entries of lexicons, recognises classes
of words, looks words up with errors in a letter trie, and chooses among the
lemmas that an external program proposes.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzelvor-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# liblzma-dev: pkg-config --static asks for it, by libxml2-dev, which does not bring it
string(JOIN ", " CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION})"
    libglibmm-2.4-dev libxml++2.6-dev liblog4cpp5-dev libjsoncpp-dev libboost-dev libboost-regex-dev wordnet-dev liblzma-dev)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"lexical entries of Latin and English (development files)
Headers, the static library, and what CMake and pkg-config need to build
programs that use libzelvor.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-zelvor)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
math(EXPR next_minor "${Python_VERSION_MINOR} + 1")
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS # the compiled part is that of one minor version
    "python3 (>= ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR}), python3 (<< ${Python_VERSION_MAJOR}.${next_minor})")
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
"TEI corpora, lexica, letter tries and language models (Python module)
Reads the sentences of TEI corpora, tells what is in them and converts them into
training data of taggers. Reads, merges and writes lexica whose entries remember their sources, looks
words up with errors, splits compounds, and scores sentences.")

# What every Debian package carries; no other installation has it.
configure_file(cmake/debian/changelog.in debian/changelog @ONLY)
foreach(component RUNTIME LIBRARY DEVELOPMENT PYTHON)
    string(TOLOWER ${component} name)
    install(FILES ${PROJECT_BINARY_DIR}/debian/changelog cmake/debian/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME}
        COMPONENT ${name} EXCLUDE_FROM_ALL)
endforeach()
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/compress.cmake)
include(CPack)
