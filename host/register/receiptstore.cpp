// SPDX-License-Identifier: MIT
#include "receiptstore.h"

#include "currenttime.h"
#include "savedreceiptfile.h"
#include "savetofilelogic.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
/// Renames a file to a name that is not taken; empty when that failed.
QString setAside(const QString& file)
{
    const QString stamp = CurrentTime::create()->current().toString(u"yyyyMMdd-hhmmss"_s);
    const QString wanted = file + u".damaged-"_s + stamp;
    QString target = wanted;
    for (int copy = 2; QFileInfo::exists(target); ++copy) {
        target = wanted + u'-' + QString::number(copy);
    }
    return QFile::rename(file, target) ? target : QString();
}
} // namespace

ReceiptStore::ReceiptStore(const QString& folder)
    : m_file(QDir(folder).filePath(SaveToFileLogic::currentReceiptFile))
{
}

bool ReceiptStore::save(const QSharedPointer<Receipt>& receipt) const
{
    return SaveToFileLogic::create()->save(receipt, {});
}

ReceiptStore::Loaded ReceiptStore::load() const
{
    if (!QFileInfo::exists(m_file)) {
        return {};
    }
    const SavedReceiptFile saved = SavedReceiptFile::read(m_file);
    if (saved.receipt) {
        return {saved.receipt, {}, {}};
    }
    return {{}, saved.damage, setAside(m_file)};
}
