// SPDX-License-Identifier: MIT
#include "printedreports.h"

#include "currenttime.h"
#include "dialog.h"
#include "printedfiles.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{

void showFailure(const QString& title, const Failure& failure)
{
    Log4Qt::LogManager::logger(u"register"_s)->error(u"A report was not printed: "_s + failure.detail);
    const tr::Tr message(u"reportNotPrinted"_s,
                         u"Отчёт «%1» не напечатан: %2\n"
                         "Освободите место на диске или проверьте доступ к папке данных и повторите действие."_s);
    Dialog::create()->showMessage(message.arg(title).arg(failure.text.ui()), Dialog::Error, 1, 0);
}

} // namespace

PrintedReports::PrintedReports(const QString& dataFolder)
    : m_folder(dataFolder)
{
    Singleton<ReportPrinter>::instance = this;
}

PrintedReports::~PrintedReports()
{
    Singleton<ReportPrinter>::instance = m_former;
}

void PrintedReports::print(const tr::Tr& title, const QStringList& lines)
{
    const QDateTime now = CurrentTime::create()->current();
    const Expected<void> written =
        printedfiles::write(m_folder, freeName(now), receiptlayout::reportLines(title.ui(), now, lines), title.ui());
    if (!written) {
        showFailure(title.ui(), written.failure());
    }
}

QString PrintedReports::freeName(const QDateTime& printed) const
{
    const QDir data(m_folder);
    const QString wanted = u"printed/report-"_s + printed.toString(u"yyyyMMdd-hhmmss"_s);
    QString name = wanted;
    for (int copy = 2; QFileInfo::exists(data.filePath(printedfiles::text(name))); ++copy) {
        name = wanted + u'-' + QString::number(copy);
    }
    return name;
}
