# The libraries that zelvor calls. Imported targets, so their headers count as system headers.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GLIBMM REQUIRED IMPORTED_TARGET glibmm-2.4)
pkg_check_modules(LIBXMLPP REQUIRED IMPORTED_TARGET libxml++-2.6)
pkg_check_modules(LOG4CPP REQUIRED IMPORTED_TARGET log4cpp)
pkg_check_modules(JSONCPP REQUIRED IMPORTED_TARGET jsoncpp)
find_package(Boost REQUIRED COMPONENTS regex)
find_package(Threads REQUIRED)

# WordNet ships neither a pkg-config nor a CMake file.
find_path(WORDNET_INCLUDE_DIR wn.h REQUIRED)
find_library(WORDNET_LIBRARY NAMES wordnet WN wordnet-3.0 REQUIRED)
mark_as_advanced(WORDNET_INCLUDE_DIR WORDNET_LIBRARY)
add_library(wordnet_library UNKNOWN IMPORTED)
set_target_properties(wordnet_library PROPERTIES
    IMPORTED_LOCATION "${WORDNET_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${WORDNET_INCLUDE_DIR}")
