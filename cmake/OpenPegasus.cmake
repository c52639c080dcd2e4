# An OpenPegasus that the user has built: PEGASUS_ROOT is its source tree, PEGASUS_HOME its installation.
set(PEGASUS_ROOT "$ENV{PEGASUS_ROOT}" CACHE PATH "Source tree of OpenPegasus (holds src/Pegasus)")
set(PEGASUS_HOME "$ENV{PEGASUS_HOME}" CACHE PATH "Installation of OpenPegasus (holds lib and bin)")
set(oldest_openpegasus 2.14.0)

set(version_header src/Pegasus/Common/PegasusVersion.h)
foreach(header src/Pegasus/Provider/CIMInstanceProvider.h src/Pegasus/Common/InternalException.h
        ${version_header})
    if(NOT EXISTS "${PEGASUS_ROOT}/${header}")
        message(FATAL_ERROR "PEGASUS_ROOT (\"${PEGASUS_ROOT}\") holds no ${header}")
    endif()
endforeach()

set(version_line "^# *define PEGASUS_PRODUCT_VERSION \"([0-9.]+)\".*")
file(STRINGS "${PEGASUS_ROOT}/${version_header}" version REGEX "${version_line}")
string(REGEX REPLACE "${version_line}" "\\1" version "${version}")
if(NOT version VERSION_GREATER_EQUAL oldest_openpegasus)
    message(FATAL_ERROR "PEGASUS_ROOT (\"${PEGASUS_ROOT}\") is OpenPegasus \"${version}\"; "
                        "${oldest_openpegasus} or later is needed")
endif()
message(STATUS "OpenPegasus ${version} in ${PEGASUS_HOME}")

target_include_directories(cim_api SYSTEM INTERFACE "${PEGASUS_ROOT}/src")
foreach(lib pegcommon pegprovider pegclient)
    find_library(path_of_${lib} ${lib} PATHS "${PEGASUS_HOME}/lib" NO_DEFAULT_PATH NO_CACHE)
    if(NOT path_of_${lib})
        message(FATAL_ERROR "PEGASUS_HOME (\"${PEGASUS_HOME}\") holds no lib/lib${lib}.so")
    endif()
    target_link_libraries(cim_api INTERFACE "${path_of_${lib}}")
endforeach()

# The server looks for providers in its own lib; from another prefix they look for the server's libraries.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Folder of libraries under the prefix")
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
    set(CMAKE_INSTALL_PREFIX "${PEGASUS_HOME}" CACHE PATH "Where cmake --install puts all" FORCE)
endif()
