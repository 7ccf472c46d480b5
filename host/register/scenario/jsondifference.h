// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

/// The first difference between a JSON value and the expected one; nothing: there is none.
///
/// An object may have more members than expected; a list must have the same number of entries. Where an object is
/// expected, a text that holds a JSON object is read as that object.
/// @param path the place of the value, for the message
std::optional<QString> jsonDifference(const QJsonValue& expected, const QJsonValue& actual, const QString& path = {});
