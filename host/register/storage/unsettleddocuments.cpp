// SPDX-License-Identifier: MIT
#include "unsettleddocuments.h"

#include "jsonfile.h"
#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{

const QString fileName = u"unsettled"_s;

void logFailure(const Failure& failure)
{
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"The note of documents with unsettled card operations failed: "_s + failure.detail);
}

} // namespace

UnsettledDocuments::UnsettledDocuments(const QString& folder)
    : m_folder(folder)
{
}

QList<int> UnsettledDocuments::numbers() const
{
    const QString file = QDir(m_folder).filePath(fileName);
    if (!QFile::exists(file)) {
        return {};
    }
    const Expected<QJsonObject> saved = readJsonObject(file);
    if (!saved) {
        logFailure(saved.failure());
        return {};
    }
    QList<int> numbers;
    for (const auto number : saved->value("documents"_L1).toArray()) {
        numbers.append(number.toInt());
    }
    return numbers;
}

void UnsettledDocuments::add(int number) const
{
    const QList<int> noted = numbers();
    if (!noted.contains(number)) {
        write(noted + QList<int>{number});
    }
}

void UnsettledDocuments::remove(int number) const
{
    QList<int> noted = numbers();
    if (noted.removeAll(number) > 0) {
        write(noted);
    }
}

void UnsettledDocuments::write(const QList<int>& numbers) const
{
    QJsonArray saved;
    for (const int number : numbers) {
        saved.append(number);
    }
    const QByteArray content = QJsonDocument(QJsonObject{{u"documents"_s, saved}}).toJson();
    if (const auto written = writeWholeFile(m_folder, fileName, content); !written) {
        logFailure(written.failure());
    }
}
