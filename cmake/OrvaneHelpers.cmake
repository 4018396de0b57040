# Small helpers shared by every folder.

# orvane_add_library(<target> [DEPS <libs...>])
# One static library per folder, made of the folder's own sources (not its subfolders).
function(orvane_add_library target)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB _sources CONFIGURE_DEPENDS
        ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/*.h
        ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
    list(FILTER _sources INCLUDE REGEX "\\.cpp$")
    if(_sources)
        file(GLOB _all CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
             ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
        add_library(${target} STATIC ${_all})
        target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${target} PUBLIC ${ARG_DEPS})
    else()
        # Declarations only so far.
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${target} INTERFACE ${ARG_DEPS})
    endif()
endfunction()

# orvane_add_test(<name> SOURCES <files...> LIBS <libs...> LABEL unit|integration|gui [TIMEOUT s])
# A Qt Test executable registered with CTest: offscreen platform, a private
# temporary directory and a timeout, so a hung test fails instead of blocking CI.
# ORVANE_TEST_DATA_DIR is tests/data: real outside data (CRSF frames, device descriptors)
# kept in the repository, so no test depends on files beside the checkout.
function(orvane_add_test name)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LIBS" ${ARGN})
    if(NOT ARG_LABEL)
        set(ARG_LABEL unit)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Qt6::Test orvane_testsupport ${ARG_LIBS})
    target_compile_definitions(${name} PRIVATE
        ORVANE_TEST_DATA_DIR="${CMAKE_SOURCE_DIR}/tests/data"
        ORVANE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    add_test(NAME ${name} COMMAND ${name})
    set(_tmp ${CMAKE_BINARY_DIR}/test-tmp/${name})
    file(MAKE_DIRECTORY ${_tmp})
    set_tests_properties(${name} PROPERTIES
        LABELS ${ARG_LABEL}
        TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TMPDIR=${_tmp};HOME=${_tmp};XDG_CONFIG_HOME=${_tmp}/config;XDG_DATA_HOME=${_tmp}/data;XDG_RUNTIME_DIR=${_tmp}")
endfunction()
