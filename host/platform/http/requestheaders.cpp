// SPDX-License-Identifier: MIT
#include "requestheaders_p.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::array clientsOwn = {
    "connection"_L1, "content-length"_L1, "expect"_L1, "host"_L1, "transfer-encoding"_L1,
};

bool is(const QString& name, QLatin1StringView other)
{
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

bool isTokenCharacter(QChar character)
{
    static const QLatin1StringView punctuation("!#$%&'*+-.^_`|~");
    const char16_t code = character.unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
           punctuation.contains(character);
}

bool isName(const QString& name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), isTokenCharacter) &&
           std::none_of(clientsOwn.begin(), clientsOwn.end(), [&name](QLatin1StringView own) { return is(name, own); });
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
        if (!isName(header.key()) || !isValue(header.value())) {
            return false;
        }
    }
    return true;
}

QHash<QString, QString> headersForOtherOrigin(const QHash<QString, QString>& headers)
{
    QHash<QString, QString> allowed;
    for (auto header = headers.begin(); header != headers.end(); ++header) {
        if (is(header.key(), "accept"_L1)) {
            allowed.insert(header.key(), header.value());
        }
    }
    return allowed;
}
