// SPDX-License-Identifier: MIT
#include "inilines.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{

const QString generalSection = u"General"_s;

/// QSettings writes what is neither a Latin letter nor a digit as %XX.
QString decoded(QByteArrayView name)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(name.toByteArray()));
}

QString sectionIn(QByteArrayView line)
{
    const qsizetype end = line.indexOf(']');
    const QString name = decoded(line.sliced(1, end < 0 ? line.size() - 1 : end - 1).trimmed());
    return name.compare(generalSection, Qt::CaseInsensitive) == 0 ? generalSection : name;
}

} // namespace

QHash<QString, int> readIniLines(const QString& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        return {};
    }
    QHash<QString, int> lines;
    QString section = generalSection;
    for (int number = 1; !source.atEnd(); ++number) {
        QByteArray line = source.readLine().trimmed();
        if (number == 1 && line.startsWith("\xEF\xBB\xBF")) {
            line.remove(0, 3);
        }
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('[')) {
            section = sectionIn(line);
        } else if (equals > 0 && !line.startsWith(';')) {
            lines.insert(section + u':' + decoded(QByteArrayView(line).first(equals).trimmed()), number);
        }
    }
    return lines;
}
