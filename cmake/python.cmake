# What the Python module needs. ZELVOR_PYTHON is ON, OFF, or AUTO: built where pybind11 and Python's headers are found.
set(ZELVOR_PYTHON ${ZELVOR_PYTHON_DEFAULT} CACHE STRING "Build the Python module: ON, OFF or AUTO")
if(NOT ZELVOR_PYTHON)
    return()
endif()

# On Debian the interpreter whose packages scripts/setup.sh installs, also where another one comes first on the path.
if(NOT DEFINED Python_EXECUTABLE AND NOT DEFINED ENV{VIRTUAL_ENV} AND EXISTS /etc/debian_version)
    set(Python_EXECUTABLE /usr/bin/python3)
endif()
set(required QUIET)
if(NOT ZELVOR_PYTHON STREQUAL "AUTO")
    set(required REQUIRED)
endif()
find_package(Python 3.9 ${required} COMPONENTS Interpreter Development.Module)
if(Python_FOUND) # pybind11 would look for an interpreter of its own, and fail
    find_package(pybind11 ${required})
endif()
if(Python_FOUND AND pybind11_FOUND)
    add_subdirectory(python)
else()
    message(STATUS "No Python module: pybind11 or Python's headers are missing")
endif()
