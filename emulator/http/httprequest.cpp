// SPDX-License-Identifier: MIT
#include "httprequest.h"

namespace emulator
{
QByteArray HttpRequest::path() const
{
    QByteArray path = target.split('?').constFirst();
    if (path.startsWith('/')) {
        return path;
    }
    const qsizetype origin = path.indexOf("://");
    if (origin < 0) {
        return path;
    }
    const qsizetype start = path.indexOf('/', origin + 3);
    return start < 0 ? QByteArray("/") : path.mid(start);
}

QByteArray HttpRequest::query() const
{
    const qsizetype mark = target.indexOf('?');
    return mark < 0 ? QByteArray() : target.mid(mark + 1);
}

QByteArray HttpRequest::mediaType() const
{
    return header("Content-Type").split(';').constFirst().trimmed().toLower();
}
} // namespace emulator
