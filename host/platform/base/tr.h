// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QMetaType>
#include <QString>
#include <QStringList>

/// Texts for people: a translation key with a default text, translated when they are shown.
namespace tr
{

/// The key of a text that has no translation, such as one that a server sent.
inline const QString undefined = QString::fromLatin1("undefined");

/// A translatable text: a key of the message catalogues, a default text, and the values of its placeholders.
///
/// A value type, known to the meta-type system under "tr::Tr" so that it travels in a `QVariant`.
class REGISTERPLATFORM_EXPORT Tr
{
public:
    Tr() = default;

    /// @param key the id in the message catalogues, lower camel case, or tr::undefined
    /// @param text shown when no catalogue has the key; may hold the placeholders %1 to %99
    Tr(const QString& key, const QString& text);

    /// The text to show: the catalogue's, or the default one, with every placeholder that has a value filled.
    ///
    /// All values are put in at once: a value that contains "%1" is shown as it is. A placeholder without a value is
    /// shown as written.
    QString ui() const;

    /// A copy with one more value: the first call gives the value of %1, the second that of %2, and so on.
    Tr arg(const QString& value) const;

    QString key() const { return m_key; }

    /// The default text as it was given, placeholders included.
    QString text() const { return m_text; }

    /// Equal keys, default texts and values.
    bool operator==(const Tr&) const = default;

private:
    QString m_key;
    QString m_text;
    QStringList m_values;
};

} // namespace tr

Q_DECLARE_METATYPE(tr::Tr)
