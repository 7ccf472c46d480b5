// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <algorithm>

#include <climits>

/// The path of a folder in which a document can be saved but a damaged one not be renamed, by root either: the longer
/// name exceeds the system's limit for paths.
inline QString deepFolder(const QString& above)
{
    constexpr int length = PATH_MAX - 30; // "/receipt.json" fits, "/receipt.json.damaged-20240229-120000" does not
    QString path = above;
    while (path.size() < length) {
        path += u'/' + QString(std::clamp<qsizetype>(length - path.size() - 1, 1, 200), u'd');
    }
    return path;
}
