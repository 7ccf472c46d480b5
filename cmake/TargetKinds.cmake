# SPDX-License-Identifier: MIT
# One function for each kind of target.
include(RegisterPlugins)

# add_room(NAME SOURCES file... [LIBRARIES lib...])
#
# The room in the current folder: an object library. It sees the headers of the rooms that it links; a target that
# links it sees its own.
function(add_room NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LIBRARIES")
    add_library(${NAME} OBJECT ${ARG_SOURCES})
    target_include_directories(${NAME} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${NAME} PUBLIC ${ARG_LIBRARIES})
    use_core_headers(${NAME})
endfunction()

# add_project_test(NAME SOURCES file... [LIBRARIES lib...] [LABELS label...] [TIMEOUT seconds])
#
# A GoogleTest program; every test of it is a ctest of its own, of so many seconds at most. It gets a main that owns a
# QApplication. With TESTS_IN_QUARTERS a quarter of the program's tests run in one process and are one ctest.
function(add_project_test NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "TIMEOUT" "SOURCES;LIBRARIES;LABELS")
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    add_executable(${NAME} ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE test_main GTest::gmock ${ARG_LIBRARIES})
    target_precompile_headers(${NAME} REUSE_FROM test_main)
    target_compile_options(${NAME} PRIVATE $<TARGET_PROPERTY:test_main,COMPILE_OPTIONS>)
    set_target_properties(${NAME} PROPERTIES AUTOMOC OFF) # no class of a test has signals of its own
    if(TESTS_IN_QUARTERS)
        foreach(quarter RANGE 3)
            add_test(NAME ${NAME}.${quarter} COMMAND ${NAME} --gtest_brief=1)
            set_tests_properties(${NAME}.${quarter} PROPERTIES
                ENVIRONMENT "GTEST_TOTAL_SHARDS=4;GTEST_SHARD_INDEX=${quarter}"
                TIMEOUT 900
                LABELS "${ARG_LABELS}")
        endforeach()
    else()
        gtest_discover_tests(${NAME}
            DISCOVERY_MODE PRE_TEST
            DISCOVERY_TIMEOUT 60
            TEST_PREFIX "${NAME}."
            PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}")
    endif()
endfunction()

# add_project_benchmark(NAME SOURCES file... [LIBRARIES lib...])
#
# A program of Google Benchmark; the target benchmarks builds them all.
function(add_project_benchmark NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LIBRARIES")
    add_executable(${NAME} ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE benchmark::benchmark ${ARG_LIBRARIES})
    add_dependencies(benchmarks ${NAME})
endfunction()
