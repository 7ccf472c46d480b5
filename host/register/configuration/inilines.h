// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

/// Where each key of an INI file is: "section:key", as Config calls it, and the number of its line, from 1. Of a key
/// that is there twice it is the last one, which counts. Empty when the file cannot be read.
QHash<QString, int> readIniLines(const QString& file);
