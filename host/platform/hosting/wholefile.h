// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QByteArray>
#include <QString>

/// For the host: writes a file within a folder so that it survives a crash and a power cut, whole or not at all: into a
/// temporary file, synced, renamed over the old one, and the folder synced. It is readable by its owner alone.
///
/// @param folder has to exist
/// @param file a file name, or `subfolder/name`, whose subfolder is made where there is none
/// @return what went wrong, in words of the system; empty: nothing. The former file stands then, except when the new
///         one could be renamed but the folder not synced.
REGISTERPLATFORM_EXPORT QString writeWholeFile(const QString& folder, const QString& file, const QByteArray& content);
