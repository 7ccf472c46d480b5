# SPDX-License-Identifier: MIT
# What nearly every source includes is parsed once. Sources include what they use all the same: the preset tidy builds
# without precompiled headers and sees that each source does, scripts/tidy that each room does.

file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/nothing.cpp" CONTENT "")

# Of Qt it sees Core alone, so that it fits whatever else a target links.
add_library(core_headers OBJECT "${CMAKE_BINARY_DIR}/nothing.cpp")
target_link_libraries(core_headers PRIVATE Qt6::Core)
target_compile_definitions(core_headers PRIVATE QT_NO_CAST_FROM_ASCII)
set_target_properties(core_headers PROPERTIES AUTOMOC OFF)
set(CORE_HEADERS
    <algorithm> <functional> <memory> <optional> <utility>
    <QDateTime> <QFile> <QHash> <QJsonArray> <QJsonDocument> <QJsonObject> <QList> <QMetaType> <QObject>
    <QSharedPointer> <QString> <QStringList> <QVariant>)
target_precompile_headers(core_headers PRIVATE ${CORE_HEADERS})

# use_core_headers(target...)
#
# Such a target writes each text as a literal of Qt's: u"…"_s or "…"_L1. Tests may write a plain one.
function(use_core_headers)
    foreach(target IN LISTS ARGN)
        target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII)
        target_precompile_headers(${target} REUSE_FROM core_headers)
    endforeach()
endfunction()
