# SPDX-License-Identifier: MIT
# PROGRAM_VERSION: what --version says, such as "0.1.0 (1a2b3c4)". Without a clone, as in a source package, it is the
# version alone.

function(ask_git ANSWER)
    set(status 1)
    if(EXISTS "${PROJECT_SOURCE_DIR}/.git" AND Git_FOUND)
        execute_process(COMMAND "${GIT_EXECUTABLE}" rev-parse ${ARGN}
            WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
            OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE status)
    endif()
    if(NOT status EQUAL 0)
        set(answer "")
    endif()
    set(${ANSWER} "${answer}" PARENT_SCOPE)
endfunction()

find_package(Git QUIET)
set(PROGRAM_VERSION "${PROJECT_VERSION}")
ask_git(commit --short HEAD)
if(commit)
    string(APPEND PROGRAM_VERSION " (${commit})")
    ask_git(movements --git-path logs/HEAD)
    get_filename_component(movements "${movements}" ABSOLUTE BASE_DIR "${PROJECT_SOURCE_DIR}")
    if(EXISTS "${movements}") # another commit configures again
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${movements}")
    endif()
endif()
