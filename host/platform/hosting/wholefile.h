// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "export.h"

#include <QByteArray>
#include <QString>

/// Writes a file within a folder so that it survives a crash and a power cut, whole or not at all: into a temporary
/// file, synced, renamed over the old one, and the folder synced. Only its owner can read it. Blocks until the disk has
/// it.
///
/// @param folder has to exist
/// @param file a file name, or `subfolder/name`; the subfolder is made if there is none
/// @return on failure the system's words, as text and after the file's path as detail. The former file is then still
///         there, except when the new one was renamed and only the folder could not be synced.
REGISTERPLATFORM_EXPORT Expected<void> writeWholeFile(const QString& folder, const QString& file,
                                                      const QByteArray& content);
