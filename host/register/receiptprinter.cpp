// SPDX-License-Identifier: MIT
#include "receiptprinter.h"

#include "dialog.h"
#include "receiptlayout.h"
#include "receiptpdf.h"
#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFileInfo>

namespace
{

/// Among so many finished documents is the one that was closed last: one that was put aside before keeps its number.
constexpr int latestFinished = 100;

QString textFile(const Receipt& receipt)
{
    return QStringLiteral("printed/%1.txt").arg(receipt.getNumber(), 8, 10, QLatin1Char('0'));
}

QString pdfFile(const Receipt& receipt)
{
    return QStringLiteral("printed/%1.pdf").arg(receipt.getNumber(), 8, 10, QLatin1Char('0'));
}

void tellFailure(const Receipt& receipt, const QString& failure)
{
    const QString number = QString::number(receipt.getNumber());
    Log4Qt::LogManager::logger(QStringLiteral("register"))
        ->error(QStringLiteral("Receipt ") + number + QStringLiteral(" was not printed: ") + failure);
    const tr::Tr message(QStringLiteral("receiptNotPrinted"),
                         QStringLiteral("Чек № %1 не напечатан: %2\n"
                                        "Сам чек сохранён. Освободите место на диске или проверьте доступ к папке "
                                        "данных, затем напечатайте его из списка документов."));
    MockFactory<Dialog>::create()->showMessage(message.arg(number).arg(failure), Dialog::Error, 1, 0);
}

} // namespace

ReceiptPrinter::ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks)
    : m_folder(dataFolder)
    , m_marks(marks)
{
}

bool ReceiptPrinter::print(const Receipt& receipt) const
{
    const QList<PrintedLine> lines = receiptlayout::lines(receipt, m_marks);
    QString failure = writeWholeFile(m_folder, textFile(receipt), receiptlayout::text(lines).toUtf8());
    if (failure.isEmpty())
        failure = writeWholeFile(m_folder, pdfFile(receipt), receiptPdf(lines, receiptlayout::title(receipt)));
    if (failure.isEmpty())
        return true;
    tellFailure(receipt, failure);
    return false;
}

void ReceiptPrinter::printInterrupted(const DocumentArchive& archive) const
{
    QSharedPointer<Receipt> last;
    for (const QSharedPointer<Receipt>& document : archive.latest(latestFinished))
        if (document->getState() == Receipt::State::Closed && (!last || document->getFinished() > last->getFinished()))
            last = document;
    if (last && !isPrinted(*last))
        print(*last);
}

bool ReceiptPrinter::isPrinted(const Receipt& receipt) const
{
    const QDir folder(m_folder);
    return QFileInfo::exists(folder.filePath(textFile(receipt))) &&
           QFileInfo::exists(folder.filePath(pdfFile(receipt)));
}
