# SPDX-License-Identifier: MIT
# What a developer may choose, and what holds for every target.

option(BUILD_TESTING "Build the tests" ON)
option(UNIT_TESTS "Build all tests; off: the scenario tests alone" ON)
option(BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(PACKAGING "Install what packages bring besides programs: manual pages, desktop entry and more" OFF)
option(TESTS_IN_QUARTERS "Run many tests in one process: starting one costs more than a test does" OFF)
option(WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
set(SANITIZERS "" CACHE STRING "Sanitizers to build with, for example address,undefined")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

# Programs and libraries are in two folders side by side, so that the register finds the platform without being installed.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(PLUGIN_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/plugins")

# Where the sources of a room are compiled as one, a name may hide a name of another source: that is no mistake.
set(shadow_warning $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>)
add_compile_options(-Wall -Wextra -Wpedantic ${shadow_warning} -Wnon-virtual-dtor -Woverloaded-virtual)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
if(WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
string(REPLACE "," ";" sanitizers "${SANITIZERS}")
if(SANITIZERS)
    add_compile_options(-fsanitize=${SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${SANITIZERS})
endif()

# Paths are taken relative to the sources, so that builds in other folders and clones share what was compiled.
# The sloppiness is what ccache asks for where a precompiled header is used.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

# The sources that moc and rcc write get one harmless check, because clang-tidy needs at least one.
if(CMAKE_CXX_CLANG_TIDY)
    file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,readability-misleading-indentation'\n")
endif()
