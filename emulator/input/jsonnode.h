// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace emulator
{
/// An object in a JSON text that a person wrote. It knows its place in the text, so that a message names it, for
/// example "seed.json: patients[2].prescriptions[0].quantity: a number is expected". Every getter throws EmulatorError
/// when the member has another type.
class JsonNode
{
public:
    /// Parses a text that consists of one object. Throws EmulatorError with line and column of a syntax error.
    static JsonNode parse(const QByteArray& json);
    /// Parses a file that consists of one object. Every message about the file begins with its path.
    static JsonNode fromFile(const QString& path);

    /// Throws for the first member that is not among the keys, because it is most likely a typing error.
    void allowOnly(const QStringList& keys) const;
    bool has(const QString& key) const { return m_object.contains(key); }

    /// A text that is required and must not be empty.
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

    /// Throws EmulatorError that names the file, the member's place and the reason.
    [[noreturn]] void fail(const QString& key, const QString& reason) const;

private:
    /// @param source what every message begins with; empty for a text that is in no file
    /// @param place  empty for the whole text
    JsonNode(const QJsonValue& value, const QString& source, const QString& place);

    static JsonNode parse(const QByteArray& json, const QString& source);
    QString placeOf(const QString& key) const;

    QJsonObject m_object;
    QString m_source;
    QString m_place;
};
} // namespace emulator
