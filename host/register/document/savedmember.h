// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// Members of a saved document, read strictly: what is missing or of another kind throws BasicException, whose text
/// names the member.
namespace savedmember
{

QString text(const QJsonObject& object, const QString& name);
double number(const QJsonObject& object, const QString& name);
/// A whole number of 1 or more, after which one more can be counted.
int positiveInteger(const QJsonObject& object, const QString& name);
QJsonArray list(const QJsonObject& object, const QString& name);
QJsonObject object(const QJsonObject& parent, const QString& name);

/// Throws for a member that holds something that this register does not know.
[[noreturn]] void refuse(const QString& name);

} // namespace savedmember
