// SPDX-License-Identifier: MIT
#include "closingcount.h"

#include "jsonfile.h"
#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{

const QString countFile = u"lastclosing"_s;

void logFailure(const QString& what, const Failure& failure)
{
    Log4Qt::LogManager::logger(u"register"_s)->error(what + failure.detail);
}

} // namespace

ClosingCount::ClosingCount(const QString& folder)
    : m_folder(folder)
{
}

std::optional<ClosingCount::Closing> ClosingCount::last() const
{
    const QString file = QDir(m_folder).filePath(countFile);
    if (!QFile::exists(file)) {
        return std::nullopt;
    }
    const Expected<QJsonObject> saved = readJsonObject(file);
    if (!saved) {
        logFailure(u"The last closing is looked for among all documents: "_s, saved.failure());
        return std::nullopt;
    }
    return Closing{saved->value("closing"_L1).toInt(), saved->value("document"_L1).toInt()};
}

void ClosingCount::note(const Closing& closing) const
{
    const QJsonObject saved{{u"closing"_s, closing.count}, {u"document"_s, closing.document}};
    if (const auto written = writeWholeFile(m_folder, countFile, QJsonDocument(saved).toJson()); !written) {
        logFailure(u"The last closing was not noted: "_s, written.failure());
    }
}
