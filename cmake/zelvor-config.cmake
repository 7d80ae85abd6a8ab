# find_package(zelvor [COMPONENTS static]) gives
#   zelvor::zelvor     the library: the shared one, or the static one where that component is asked for
#   zelvor::converter  the converter of TaggerFormatConverter, on top of it
# and finds the libraries that these call.
include(CMakeFindDependencyMacro)
list(PREPEND CMAKE_MODULE_PATH "${CMAKE_CURRENT_LIST_DIR}")
find_dependency(ZelvorDependencies)
list(POP_FRONT CMAKE_MODULE_PATH)

if(NOT TARGET zelvor::zelvor)
    if("static" IN_LIST zelvor_FIND_COMPONENTS)
        include("${CMAKE_CURRENT_LIST_DIR}/zelvor-static.cmake")
    else()
        include("${CMAKE_CURRENT_LIST_DIR}/zelvor-shared.cmake")
    endif()
    include("${CMAKE_CURRENT_LIST_DIR}/zelvor-converter.cmake")
endif()
foreach(component IN LISTS zelvor_FIND_COMPONENTS)
    if(NOT component MATCHES "^(static|shared)$" AND zelvor_FIND_REQUIRED_${component})
        set(zelvor_FOUND FALSE)
        set(zelvor_NOT_FOUND_MESSAGE "zelvor has no component ${component}; there are static and shared")
    endif()
endforeach()
