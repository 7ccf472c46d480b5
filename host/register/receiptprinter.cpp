// SPDX-License-Identifier: MIT
#include "receiptprinter.h"

#include "dialog.h"
#include "receiptpdf.h"
#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{

/// Among so many finished documents is the one that was closed last: one that was put aside before keeps its number.
constexpr int latestFinished = 100;

/// Without what tells text from PDF.
QString nameOf(const Receipt& receipt)
{
    return u"printed/%1"_s.arg(receipt.getNumber(), 8, 10, QChar(u'0'));
}

QString textFile(const QString& name)
{
    return name + u".txt"_s;
}

QString pdfFile(const QString& name)
{
    return name + u".pdf"_s;
}

void tellFailure(const Receipt& receipt, const QString& failure)
{
    const QString number = QString::number(receipt.getNumber());
    Log4Qt::LogManager::logger(u"register"_s)->error(u"Receipt "_s + number + u" was not printed: "_s + failure);
    const tr::Tr message(u"receiptNotPrinted"_s,
                         u"Чек № %1 не напечатан: %2\n"
                         "Сам чек сохранён. Освободите место на диске или проверьте доступ к папке "
                         "данных, затем напечатайте его из списка документов."_s);
    Dialog::create()->showMessage(message.arg(number).arg(failure), Dialog::Error, 1, 0);
}

} // namespace

ReceiptPrinter::ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks)
    : m_folder(dataFolder)
    , m_marks(marks)
{
}

bool ReceiptPrinter::print(const Receipt& receipt) const
{
    return write(receipt, nameOf(receipt), receiptlayout::lines(receipt, m_marks));
}

QString ReceiptPrinter::printAgain(const Receipt& receipt) const
{
    const QString original = nameOf(receipt);
    if (!isPrinted(receipt)) {
        return print(receipt) ? pdfFile(original) : QString();
    }
    const QString copy = original + u"-copy"_s;
    return write(receipt, copy, receiptlayout::copyLines(receipt, m_marks)) ? pdfFile(copy) : QString();
}

bool ReceiptPrinter::write(const Receipt& receipt, const QString& name, const QList<PrintedLine>& lines) const
{
    QString failure = writeWholeFile(m_folder, textFile(name), receiptlayout::text(lines).toUtf8());
    if (failure.isEmpty()) {
        failure = writeWholeFile(m_folder, pdfFile(name), receiptPdf(lines, receiptlayout::title(receipt)));
    }
    if (failure.isEmpty()) {
        return true;
    }
    tellFailure(receipt, failure);
    return false;
}

void ReceiptPrinter::printInterrupted(const DocumentArchive& archive) const
{
    QSharedPointer<Receipt> last;
    for (const QSharedPointer<Receipt>& document : archive.latest(latestFinished)) {
        if (document->getState() == Receipt::State::Closed &&
            (!last || document->getFinished() > last->getFinished())) {
            last = document;
        }
    }
    if (last && !isPrinted(*last)) {
        print(*last);
    }
}

bool ReceiptPrinter::isPrinted(const Receipt& receipt) const
{
    const QDir folder(m_folder);
    return QFileInfo::exists(folder.filePath(textFile(nameOf(receipt)))) &&
           QFileInfo::exists(folder.filePath(pdfFile(nameOf(receipt))));
}
