// SPDX-License-Identifier: MIT
#include "inilines.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

const QString generalSection = u"General"_s;
constexpr qsizetype mostFaults = 10; // a file that is no configuration has no right line

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

/// The lines of a file, without a byte order mark and without blanks around them.
QList<QByteArray> linesOf(const QString& file)
{
    QFile source(file);
    if (!QFileInfo(file).isFile() || !source.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray content = source.readAll();
    if (content.startsWith("\xEF\xBB\xBF")) {
        content.remove(0, 3);
    }
    QList<QByteArray> lines = content.split('\n');
    std::transform(lines.cbegin(), lines.cend(), lines.begin(), [](const QByteArray& line) { return line.trimmed(); });
    return lines;
}

/// The next line belongs to the value of this one.
bool goesOn(const QByteArray& line)
{
    const auto end = std::find_if(line.crbegin(), line.crend(), [](char letter) { return letter != '\\'; });
    return std::distance(line.crbegin(), end) % 2 == 1;
}

bool isText(const QByteArray& line)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(line);
    return !decode.hasError() && !text.contains(QChar::Null);
}

std::optional<QString> faultOf(const QByteArray& line)
{
    if (!isText(line)) {
        return u"is no text in UTF-8: save the file as UTF-8"_s;
    }
    if (line.contains("@Variant(")) {
        return u"has a value that is no text: write it again, without @Variant("_s;
    }
    if (line.startsWith('[') && !line.contains(']')) {
        return u"is a section without its closing bracket: write [Section]"_s;
    }
    if (line.isEmpty() || line.startsWith('[') || line.startsWith(';') || line.contains('=')) {
        return std::nullopt;
    }
    return u"is neither a section nor a key with a value: write [Section], key=value, or ; before a comment"_s;
}

/// Every line of each key.
QHash<QString, QList<int>> placesOfKeys(const QString& file)
{
    QHash<QString, QList<int>> places;
    QString section = generalSection;
    int number = 0;
    bool isContinued = false;
    for (const QByteArray& line : linesOf(file)) {
        ++number;
        const qsizetype equals = line.indexOf('=');
        if (!isContinued && line.startsWith('[')) {
            section = sectionIn(line);
        } else if (!isContinued && equals > 0 && !line.startsWith(';')) {
            places[section + u':' + decoded(QByteArrayView(line).first(equals).trimmed())].append(number);
        }
        isContinued = goesOn(line);
    }
    return places;
}

} // namespace

QHash<QString, int> readIniLines(const QString& file)
{
    const QHash<QString, QList<int>> places = placesOfKeys(file);
    QHash<QString, int> lines;
    for (auto place = places.cbegin(); place != places.cend(); ++place) {
        lines.insert(place.key(), place->constLast());
    }
    return lines;
}

QHash<QString, QList<int>> readRepeatedKeys(const QString& file)
{
    QHash<QString, QList<int>> places = placesOfKeys(file);
    places.removeIf([](const auto place) { return place->size() == 1; });
    return places;
}

QList<IniFault> readIniFaults(const QString& file)
{
    QList<IniFault> faults;
    int number = 0;
    bool isContinued = false;
    for (const QByteArray& line : linesOf(file)) {
        if (faults.size() == mostFaults) {
            break;
        }
        ++number;
        const std::optional<QString> fault = isContinued && isText(line) ? std::nullopt : faultOf(line);
        if (fault) {
            faults.append({number, *fault});
        }
        isContinued = goesOn(line);
    }
    return faults;
}
