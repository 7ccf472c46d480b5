# SPDX-License-Identifier: MIT
# One function for each kind of target.

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

# add_register_plugin(NAME LIBRARIES lib... [LAYOUTS file...])
#
# A plug-in that the register loads. LIBRARIES are (object) libraries that hold its code. LAYOUTS are the .ui files,
# the positionmarks.json and the configuration.json that it brings; they are copied into a folder of the plug-in's name beside the library.
function(add_register_plugin NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "LIBRARIES;LAYOUTS")
    add_library(${NAME} MODULE)
    target_link_libraries(${NAME} PRIVATE ${ARG_LIBRARIES})
    set_target_properties(${NAME} PROPERTIES
        LINKER_LANGUAGE CXX
        LIBRARY_OUTPUT_DIRECTORY "${PLUGIN_OUTPUT_DIRECTORY}"
        INSTALL_RPATH "$ORIGIN/..")
    install(TARGETS ${NAME} LIBRARY DESTINATION lib/pharmacy-register/plugins)
    if(ARG_LAYOUTS)
        set(copies "")
        foreach(layout IN LISTS ARG_LAYOUTS)
            get_filename_component(file "${layout}" NAME)
            get_filename_component(source "${layout}" ABSOLUTE)
            set(copy "${PLUGIN_OUTPUT_DIRECTORY}/${NAME}/${file}")
            add_custom_command(OUTPUT "${copy}" DEPENDS "${source}"
                COMMAND ${CMAKE_COMMAND} -E copy "${source}" "${copy}")
            list(APPEND copies "${copy}")
        endforeach()
        add_custom_target(${NAME}_layouts ALL DEPENDS ${copies})
        add_dependencies(${NAME} ${NAME}_layouts)
        install(FILES ${ARG_LAYOUTS} DESTINATION lib/pharmacy-register/plugins/${NAME})
    endif()
endfunction()

# add_message_catalogues(TARGET file... [BESIDE_LAYOUTS])
#
# The target's texts in other languages: one catalogue a language, whose messages are found by their ids. They are Qt
# resources in :/translations of the target, or, for a plug-in, files beside its layouts.
function(add_message_catalogues TARGET)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "BESIDE_LAYOUTS" "" "")
    if(ARG_BESIDE_LAYOUTS)
        set_source_files_properties(${ARG_UNPARSED_ARGUMENTS} PROPERTIES
            OUTPUT_LOCATION "${PLUGIN_OUTPUT_DIRECTORY}/${TARGET}")
    endif()
    qt_add_lrelease(${TARGET}
        TS_FILES ${ARG_UNPARSED_ARGUMENTS}
        OPTIONS -idbased -silent
        QM_FILES_OUTPUT_VARIABLE catalogues)
    if(ARG_BESIDE_LAYOUTS)
        install(FILES ${catalogues} DESTINATION lib/pharmacy-register/plugins/${TARGET})
    else()
        qt_add_resources(${TARGET} ${TARGET}_translations
            PREFIX /translations
            BASE "${CMAKE_CURRENT_BINARY_DIR}"
            FILES ${catalogues})
    endif()
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
