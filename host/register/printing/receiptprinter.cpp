// SPDX-License-Identifier: MIT
#include "receiptprinter.h"

#include "dialog.h"
#include "printedfiles.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

namespace
{

/// The path in the data folder, without ".txt" and ".pdf".
QString nameOf(const Document& document)
{
    return u"printed/%1"_s.arg(document.getNumber(), 8, 10, QChar(u'0'));
}

void showFailure(const Document& document, const Failure& failure)
{
    const QString number = QString::number(document.getNumber());
    Log4Qt::LogManager::logger(u"register"_s)->error(u"Receipt "_s + number + u" was not printed: "_s + failure.detail);
    const tr::Tr message(u"receiptNotPrinted"_s,
                         u"Чек № %1 не напечатан: %2\n"
                         "Сам чек сохранён. Освободите место на диске или проверьте доступ к папке "
                         "данных, затем напечатайте его из списка документов."_s);
    Dialog::create()->showMessage(message.arg(number).arg(failure.text.ui()), Dialog::Error, 1, 0);
}

} // namespace

ReceiptPrinter::ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks)
    : m_folder(dataFolder)
    , m_marks(marks)
{
}

bool ReceiptPrinter::printOrShow(const Document& document) const
{
    return writeOrShow(document, nameOf(document), receiptlayout::lines(document, m_marks));
}

std::optional<QString> ReceiptPrinter::printAgainOrShow(const Document& document) const
{
    const bool isCopy = isPrinted(document);
    const QString name = isCopy ? nameOf(document) + u"-copy"_s : nameOf(document);
    const bool isWritten =
        isCopy ? writeOrShow(document, name, receiptlayout::copyLines(document, m_marks)) : printOrShow(document);
    return isWritten ? std::optional(printedfiles::pdf(name)) : std::nullopt;
}

bool ReceiptPrinter::writeOrShow(const Document& document, const QString& name, const QList<PrintedLine>& lines) const
{
    const Expected<void> written = printedfiles::write(m_folder, name, lines, receiptlayout::title(document));
    if (!written) {
        showFailure(document, written.failure());
    }
    return bool(written);
}

QSharedPointer<Document> ReceiptPrinter::interrupted(const ArchiveFolder& archive) const
{
    const QSharedPointer<Document> last = archive.lastClosed();
    return last && !isPrinted(*last) ? last : nullptr;
}

bool ReceiptPrinter::isPrinted(const Document& document) const
{
    return printedfiles::areThere(m_folder, nameOf(document));
}
