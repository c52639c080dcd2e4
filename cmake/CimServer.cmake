# The CIM server that the module is built for. Both offer the same public headers under Pegasus/, so
# the module, the siblings and their tests name only the target Cim::api.
set(QRV_CIM_SERVER "embedded" CACHE STRING "The CIM server to build for: embedded or openpegasus")
set_property(CACHE QRV_CIM_SERVER PROPERTY STRINGS embedded openpegasus)

add_library(cim_api INTERFACE)
add_library(Cim::api ALIAS cim_api)
target_compile_definitions(cim_api INTERFACE PEGASUS_PLATFORM_LINUX_X86_64_GNU)

if(QRV_CIM_SERVER STREQUAL "embedded")
    target_link_libraries(cim_api INTERFACE cim_model)
elseif(QRV_CIM_SERVER STREQUAL "openpegasus")
    include(${CMAKE_CURRENT_LIST_DIR}/OpenPegasus.cmake)
else()
    message(FATAL_ERROR "QRV_CIM_SERVER is \"${QRV_CIM_SERVER}\"; it must be embedded or openpegasus")
endif()
