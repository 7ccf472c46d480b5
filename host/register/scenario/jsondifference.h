// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QString>

/// Where a JSON value differs from what is expected of it; empty: nowhere.
///
/// Of an object only the expected members are looked at; a list has to have as many entries as expected. A text that
/// holds a JSON object is read as one where an object is expected.
/// @param path of the value, for the message
QString jsonDifference(const QJsonValue& expected, const QJsonValue& actual, const QString& path = {});
