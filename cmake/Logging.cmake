# SPDX-License-Identifier: MIT
# The named logger. Where Log4Qt is installed it is used as it is; otherwise the platform supplies
# <log4qt/logger.h> and <log4qt/logmanager.h> as a thin layer over log4cplus.
#
# Sets LOG4QT_IS_NATIVE, and the target Logging::backend that the platform links.

find_package(Qt6 QUIET COMPONENTS Concurrent) # Log4Qt's package file asks for it by target name
find_package(Log4Qt QUIET)
add_library(logging_backend INTERFACE)
add_library(Logging::backend ALIAS logging_backend)
if(Log4Qt_FOUND)
    set(LOG4QT_IS_NATIVE TRUE)
    target_link_libraries(logging_backend INTERFACE Log4Qt::log4qt)
else()
    set(LOG4QT_IS_NATIVE FALSE)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(LOG4CPLUS REQUIRED IMPORTED_TARGET log4cplus)
    target_link_libraries(logging_backend INTERFACE PkgConfig::LOG4CPLUS)
endif()
