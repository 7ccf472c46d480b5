# SPDX-License-Identifier: MIT
# One function for each kind of target.

# add_register_plugin(NAME LIBRARIES lib... [LAYOUTS file...])
#
# A plug-in that the register loads. LIBRARIES are (object) libraries that hold its code. LAYOUTS are the .ui files
# and the positionmarks.json that it brings; they lie in a folder of the plug-in's name beside the library.
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

# add_project_test(NAME SOURCES file... [LIBRARIES lib...] [LABELS label...])
#
# A GoogleTest program; every test of it is a ctest of its own. It gets a main that owns a QApplication.
function(add_project_test NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "TIMEOUT" "SOURCES;LIBRARIES;LABELS")
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    add_executable(${NAME} ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE test_main GTest::gmock ${ARG_LIBRARIES})
    gtest_discover_tests(${NAME}
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        TEST_PREFIX "${NAME}."
        PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}")
endfunction()

# add_project_benchmark(NAME SOURCES file... [LIBRARIES lib...])
function(add_project_benchmark NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LIBRARIES")
    add_executable(${NAME} ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE benchmark::benchmark ${ARG_LIBRARIES})
endfunction()
