// SPDX-License-Identifier: MIT
#include "requestheaders_p.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace
{

constexpr std::array clientsOwn = {
    QLatin1String("connection"), QLatin1String("content-length"),    QLatin1String("expect"),
    QLatin1String("host"),       QLatin1String("transfer-encoding"),
};

bool is(const QString& name, QLatin1String other)
{
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

bool isTokenCharacter(QChar character)
{
    static const QLatin1String punctuation("!#$%&'*+-.^_`|~");
    const char16_t code = character.unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
           punctuation.contains(character);
}

bool isName(const QString& name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), isTokenCharacter) &&
           std::none_of(clientsOwn.begin(), clientsOwn.end(), [&name](QLatin1String own) { return is(name, own); });
}

bool isValue(const QString& value)
{
    constexpr char16_t del = 0x7f;
    return std::all_of(value.begin(), value.end(), [](QChar character) {
        return character == u'\t' || (character >= u' ' && character != QChar(del));
    });
}

} // namespace

bool areHeadersUsable(const QHash<QString, QString>& headers)
{
    for (auto header = headers.begin(); header != headers.end(); ++header) {
        if (!isName(header.key()) || !isValue(header.value()))
            return false;
    }
    return true;
}

QHash<QString, QString> headersForOtherOrigin(const QHash<QString, QString>& headers)
{
    QHash<QString, QString> allowed;
    for (auto header = headers.begin(); header != headers.end(); ++header) {
        if (is(header.key(), QLatin1String("accept")))
            allowed.insert(header.key(), header.value());
    }
    return allowed;
}
