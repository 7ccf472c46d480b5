// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QString>

/// Where each key of an INI file is: "section:key", as Config calls it, and the number of its line, from 1. Of a key
/// that is there twice it is the last one, which counts. Empty when the file cannot be read.
QHash<QString, int> readIniLines(const QString& file);

/// The keys of an INI file that are there more than once, as above, each with the numbers of its lines in their order.
/// Empty when the file cannot be read.
QHash<QString, QList<int>> readRepeatedKeys(const QString& file);

/// A line that cannot be read.
struct IniFault {
    int line;     ///< from 1
    QString text; ///< what is wrong, and what to write instead, in English
};

/// The lines of a file that keep it from being read as an INI file, ten at most. Empty when it cannot be opened.
QList<IniFault> readIniFaults(const QString& file);
