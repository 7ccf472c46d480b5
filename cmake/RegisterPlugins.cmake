# SPDX-License-Identifier: MIT
# How a plug-in is built. It is installed with the platform, so it needs nothing else of this tree.

# Where an installed register looks for plug-ins, below its prefix. An installed platform sets it.
if(NOT DEFINED REGISTER_PLUGIN_FOLDER)
    include(GNUInstallDirs)
    set(REGISTER_PLUGIN_FOLDER "${CMAKE_INSTALL_LIBDIR}/pharmacy-register/plugins")
endif()

# Where modules and what they bring are put. The register's option --plugins takes it.
if(NOT DEFINED PLUGIN_OUTPUT_DIRECTORY)
    set(PLUGIN_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/plugins")
endif()

# add_register_plugin(NAME [SOURCES file...] [LIBRARIES lib...] [LAYOUTS file...])
#
# A plug-in that the register loads. Its code is in SOURCES, and in LIBRARIES, which are (object) libraries. LAYOUTS are
# the .ui files, the positionmarks.json and the configuration.json that it brings; they are copied into a folder of the
# plug-in's name beside the module. cmake --install puts both into the plug-in folder of a register with that prefix.
function(add_register_plugin NAME)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LIBRARIES;LAYOUTS")
    add_library(${NAME} MODULE ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE RegisterPlatform::platform ${ARG_LIBRARIES})
    set_target_properties(${NAME} PROPERTIES
        AUTOMOC ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LINKER_LANGUAGE CXX
        LIBRARY_OUTPUT_DIRECTORY "${PLUGIN_OUTPUT_DIRECTORY}"
        INSTALL_RPATH "$ORIGIN/../..")
    install(TARGETS ${NAME} LIBRARY DESTINATION "${REGISTER_PLUGIN_FOLDER}")
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
        install(FILES ${ARG_LAYOUTS} DESTINATION "${REGISTER_PLUGIN_FOLDER}/${NAME}")
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
        add_custom_target(${TARGET}_catalogues ALL DEPENDS ${catalogues})
        install(FILES ${catalogues} DESTINATION "${REGISTER_PLUGIN_FOLDER}/${TARGET}")
    else()
        qt_add_resources(${TARGET} ${TARGET}_translations
            PREFIX /translations
            BASE "${CMAKE_CURRENT_BINARY_DIR}"
            FILES ${catalogues})
    endif()
endfunction()
