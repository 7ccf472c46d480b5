// SPDX-License-Identifier: MIT
#include "searchtext.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace
{

/// The keys of the two layouts in the same order, as search texts have them: "ё" is "е" there, so its key follows that
/// of "е".
constexpr QStringView english = u"qwertyuiop[]asdfghjkl;'zxcvbnm,./`{}:\"<>?~";
constexpr QStringView russian = u"йцукенгшщзхъфывапролджэячсмитьбю.ехъжэбю,е";
static_assert(english.size() == russian.size());

QHash<QChar, QChar> otherKeys()
{
    QHash<QChar, QChar> keys;
    for (qsizetype key = english.size() - 1; key >= 0; --key) { // of two keys of a letter the first one counts
        keys.insert(russian[key], english[key]);
    }
    for (qsizetype key = 0; key < english.size(); ++key) { // "." and "," are meant as English keys
        keys.insert(english[key], russian[key]);
    }
    return keys;
}

} // namespace

QString searchText(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C).simplified().toCaseFolded().replace(u'ё', u'е');
}

QStringList searchWords(const QString& search)
{
    return searchText(search).split(u' ', Qt::SkipEmptyParts);
}

QString onOtherLayout(const QString& searchText)
{
    static const QHash<QChar, QChar> keys = otherKeys();
    QString other = searchText;
    for (QChar& letter : other) {
        letter = keys.value(letter, letter);
    }
    return other;
}
