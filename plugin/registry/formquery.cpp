// SPDX-License-Identifier: MIT
#include "formquery.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{

/// Never null: before a null value QUrlQuery leaves out the "=".
QString percentEncoded(const QString& value)
{
    return value.isEmpty() ? u""_s : QString::fromLatin1(QUrl::toPercentEncoding(value));
}

} // namespace

QUrlQuery formQuery(const QList<std::pair<QString, QString>>& items)
{
    QUrlQuery query;
    for (const auto& [name, value] : items) {
        query.addQueryItem(name, percentEncoded(value));
    }
    return query;
}
