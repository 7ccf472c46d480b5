// SPDX-License-Identifier: MIT
#include "receiptstore.h"

#include "basicexception.h"
#include "currenttime.h"
#include "savetofilelogic.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonParseError>

namespace
{
/// Renames a file to a name that is not taken; empty when that failed.
QString setAside(const QString& file)
{
    const QString stamp = CurrentTime::create()->current().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    const QString wanted = file + QStringLiteral(".damaged-") + stamp;
    QString target = wanted;
    for (int copy = 2; QFileInfo::exists(target); ++copy)
        target = wanted + QLatin1Char('-') + QString::number(copy);
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
    if (!QFileInfo::exists(m_file))
        return {};
    QString damage;
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly)) {
        damage = file.errorString();
    } else {
        QJsonParseError error;
        const QJsonDocument json = QJsonDocument::fromJson(file.readAll(), &error);
        file.close();
        if (json.isObject()) {
            try {
                return {Receipt::fromJson(json.object()), {}, {}};
            } catch (const BasicException& wrong) {
                damage = wrong.tr().ui();
            }
        } else {
            damage = error.errorString();
        }
    }
    return {{}, damage, setAside(m_file)};
}
