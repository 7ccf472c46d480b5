// SPDX-License-Identifier: MIT
#pragma once

#include "kopecks.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// Strict readers for the members of a saved document. A member that is missing or of the wrong type throws
/// BasicException, whose text names it.
namespace savedmember
{

QString text(const QJsonObject& object, const QString& name);
double number(const QJsonObject& object, const QString& name);
/// A whole number from 1 to the last but one `int`, so that counting on from it does not overflow.
int positiveInteger(const QJsonObject& object, const QString& name);
/// An amount of money, saved in roubles.
Kopecks amount(const QJsonObject& object, const QString& name);
/// A price per pack that GoodsItem accepts, saved in roubles.
Kopecks price(const QJsonObject& object, const QString& name);
/// A quantity that GoodsItem accepts.
double packs(const QJsonObject& object, const QString& name);
QJsonArray list(const QJsonObject& object, const QString& name);
/// A list whose elements are all texts.
QStringList texts(const QJsonObject& object, const QString& name);
QJsonObject object(const QJsonObject& parent, const QString& name);

/// Throws because the member `name` has an unknown value.
[[noreturn]] void refuse(const QString& name);

} // namespace savedmember
