// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "export.h"

#include <QJsonObject>
#include <QString>

/// Reads a file that holds one JSON object (RFC 8259) in UTF-8.
///
/// Fails when there is no such file, when it cannot be read, and when it holds anything else. The failure's detail
/// names the file, and in damaged JSON the byte where it ends to make sense.
REGISTERPLATFORM_EXPORT Expected<QJsonObject> readJsonObject(const QString& file);
