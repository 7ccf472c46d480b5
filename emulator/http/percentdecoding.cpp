// SPDX-License-Identifier: MIT
#include "percentdecoding.h"

#include <QStringDecoder>

namespace emulator
{
namespace
{
int hexadecimalDigit(char character)
{
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'a' && character <= 'f') {
        return character - 'a' + 10;
    }
    if (character >= 'A' && character <= 'F') {
        return character - 'A' + 10;
    }
    return -1;
}

std::optional<QString> utf8(const QByteArray& octets)
{
    using Flag = QStringDecoder::Flag; // a byte order mark is kept as a character of the text
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    QString text = decoder(octets);
    if (decoder.hasError()) {
        return std::nullopt;
    }
    return text;
}

std::optional<QString> decode(const QByteArray& encoded, char plus)
{
    QByteArray octets;
    octets.reserve(encoded.size());
    for (qsizetype at = 0; at < encoded.size(); ++at) {
        const char character = encoded.at(at);
        if (character == '+') {
            octets += plus;
        } else if (character != '%') {
            octets += character;
        } else {
            if (at + 2 >= encoded.size()) {
                return std::nullopt;
            }
            const int high = hexadecimalDigit(encoded.at(at + 1));
            const int low = hexadecimalDigit(encoded.at(at + 2));
            if (high < 0 || low < 0) {
                return std::nullopt;
            }
            octets += char(high * 16 + low);
            at += 2;
        }
    }
    return utf8(octets);
}

std::optional<DecodedPairs> decodePairs(const QByteArray& encoded, char plus)
{
    DecodedPairs pairs;
    for (const QByteArray& part : encoded.split('&')) {
        if (part.isEmpty()) {
            continue;
        }
        const qsizetype equals = part.indexOf('=');
        const auto name = decode(equals < 0 ? part : part.left(equals), plus);
        const auto value = decode(equals < 0 ? QByteArray() : part.mid(equals + 1), plus);
        if (!name || !value) {
            return std::nullopt;
        }
        pairs.append({*name, *value});
    }
    return pairs;
}
} // namespace

std::optional<QString> decodePercent(const QByteArray& encoded)
{
    return decode(encoded, '+');
}

std::optional<DecodedPairs> decodeQuery(const QByteArray& query)
{
    return decodePairs(query, '+');
}

std::optional<DecodedPairs> decodeForm(const QByteArray& body)
{
    return decodePairs(body, ' ');
}
} // namespace emulator
