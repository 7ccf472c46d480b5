// SPDX-License-Identifier: MIT
#include "printedfiles.h"

#include "receiptpdf.h"
#include "wholefile.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace printedfiles
{

QString text(const QString& name)
{
    return name + u".txt"_s;
}

QString pdf(const QString& name)
{
    return name + u".pdf"_s;
}

bool areThere(const QString& folder, const QString& name)
{
    const QDir data(folder);
    return QFileInfo::exists(data.filePath(text(name))) && QFileInfo::exists(data.filePath(pdf(name)));
}

Expected<void> write(const QString& folder, const QString& name, const QList<PrintedLine>& lines, const QString& title)
{
    Expected<void> written = writeWholeFile(folder, text(name), receiptlayout::text(lines).toUtf8());
    if (written) {
        written = writeWholeFile(folder, pdf(name), receiptPdf(lines, title));
    }
    return written;
}

} // namespace printedfiles
