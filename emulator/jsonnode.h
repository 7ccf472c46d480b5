// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace emulator
{
/// An object of a JSON text that someone wrote by hand. It knows where it stands, so that a mistake in it can be told
/// with its place, for example "patients[2].prescriptions[0].quantity: a number is expected". Every reading throws
/// EmulatorError when the member has another type.
class JsonNode
{
public:
    /// Parses a text that holds one object; throws with line and column of what is no JSON.
    static JsonNode parse(const QByteArray& json);

    /// `place`: empty for the whole text.
    JsonNode(const QJsonValue& value, const QString& place);

    /// Throws for the first member that is not among the keys: most likely a slip of the pen.
    void allowOnly(const QStringList& keys) const;
    bool has(const QString& key) const { return m_object.contains(key); }

    /// A text that has to be there and must not be empty.
    QString text(const QString& key) const;
    QString text(const QString& key, const QString& whenAbsent) const;
    bool flag(const QString& key, bool whenAbsent) const;
    std::optional<double> number(const QString& key) const;
    /// A whole number that is not negative.
    std::optional<int> count(const QString& key) const;
    /// Absent: empty.
    QStringList texts(const QString& key) const;
    /// The objects of an array; absent: empty.
    QList<JsonNode> list(const QString& key) const;
    /// Absent: an empty object.
    JsonNode object(const QString& key) const;

    [[noreturn]] void fail(const QString& key, const QString& reason) const;

private:
    QString placeOf(const QString& key) const;

    QJsonObject m_object;
    QString m_place;
};
} // namespace emulator
