// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace emulator
{
/// What a record's member is in the database.
/// @{
QVariant stored(const QString& member);               ///< never NULL
QVariant stored(const QStringList& member);           ///< a JSON array
QVariant stored(const QByteArray& member);            ///< the same bytes as UTF-8 text
QVariant stored(const QDate& member);                 ///< yyyy-MM-dd
QVariant stored(const std::optional<double>& member); ///< nothing: NULL
inline QVariant stored(int member)
{
    return member;
}
inline QVariant stored(bool member)
{
    return member;
}
inline QVariant stored(double member)
{
    return member;
}
/// @}

/// Sets a member to what is in the database.
/// @{
void restore(QString& member, const QVariant& value);
void restore(QStringList& member, const QVariant& value);
void restore(QByteArray& member, const QVariant& value);
void restore(QDate& member, const QVariant& value);
void restore(std::optional<double>& member, const QVariant& value);
inline void restore(int& member, const QVariant& value)
{
    member = value.toInt();
}
inline void restore(bool& member, const QVariant& value)
{
    member = value.toBool();
}
inline void restore(double& member, const QVariant& value)
{
    member = value.toDouble();
}
/// @}
} // namespace emulator
