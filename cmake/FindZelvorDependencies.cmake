# The libraries that zelvor calls: for its own build and, installed beside the CMake package, for that of its users.
# Imported targets, so their headers count as system headers.
set(ZELVOR_MODULES glibmm-2.4 libxml++-2.6 log4cpp jsoncpp)
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
    pkg_check_modules(ZELVOR_DEPENDENCIES IMPORTED_TARGET ${ZELVOR_MODULES})
endif()
find_package(Boost QUIET COMPONENTS regex)
find_package(Threads QUIET)

# WordNet ships neither a pkg-config nor a CMake file.
find_path(WORDNET_INCLUDE_DIR wn.h)
find_library(WORDNET_LIBRARY NAMES wordnet WN wordnet-3.0)
mark_as_advanced(WORDNET_INCLUDE_DIR WORDNET_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(ZelvorDependencies
    REQUIRED_VARS ZELVOR_DEPENDENCIES_FOUND Boost_REGEX_FOUND Threads_FOUND WORDNET_INCLUDE_DIR WORDNET_LIBRARY)
if(ZelvorDependencies_FOUND AND NOT TARGET WordNet::WordNet)
    add_library(WordNet::WordNet UNKNOWN IMPORTED)
    set_target_properties(WordNet::WordNet PROPERTIES
        IMPORTED_LOCATION "${WORDNET_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${WORDNET_INCLUDE_DIR}")
endif()
