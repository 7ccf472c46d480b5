// SPDX-License-Identifier: MIT
#pragma once

#include "reportprinter.h"

#include <QDateTime>
#include <QString>

/// Prints the reports of plug-ins into the folder `printed` of the data folder, for as long as it lives.
class PrintedReports : public ReportPrinter
{
public:
    explicit PrintedReports(const QString& dataFolder);
    ~PrintedReports() override;
    Q_DISABLE_COPY_MOVE(PrintedReports)

    /// Writes `printed/report-<yyyyMMdd-hhmmss>.txt` and `.pdf`, with `-2` and so on behind the time where that name is
    /// taken.
    void print(const tr::Tr& title, const QStringList& lines) override;

private:
    QString freeName(const QDateTime& printed) const;

    const QString m_folder;
    ReportPrinter* const m_former = Singleton<ReportPrinter>::instance;
};
