// SPDX-License-Identifier: MIT
#include "opendocumentfile.h"

#include "currenttime.h"
#include "saveddocument.h"
#include "savetofilelogic.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
const QString damaged = u".damaged-"_s;

/// Renames a damaged file to a name that is not taken. @return the new name; empty when renaming failed
QString renameDamaged(const QString& file)
{
    const QString stamp = CurrentTime::create()->current().toString(u"yyyyMMdd-hhmmss"_s);
    const QString wanted = file + damaged + stamp;
    QString target = wanted;
    for (int copy = 2; QFileInfo::exists(target); ++copy) {
        target = wanted + u'-' + QString::number(copy);
    }
    return QFile::rename(file, target) ? target : QString();
}
} // namespace

OpenDocumentFile::OpenDocumentFile(const QString& folder)
    : m_file(QDir(folder).filePath(AbstractDocument::openDocumentFile))
{
}

bool OpenDocumentFile::saveOrShow(const QSharedPointer<Document>& document) const
{
    return SaveToFileLogic::create()->save(document, {});
}

OpenDocumentFile::Loaded OpenDocumentFile::load() const
{
    if (!QFileInfo::exists(m_file)) {
        return QSharedPointer<Document>();
    }
    const Expected<QSharedPointer<Document>> saved = readSavedDocument(m_file);
    if (!saved) {
        return DamagedDocumentFile{saved.failure(), renameDamaged(m_file)};
    }
    return *saved;
}

QStringList OpenDocumentFile::setAside() const
{
    const QFileInfo file(m_file);
    return file.dir().entryList({file.fileName() + damaged + u'*'}, QDir::Files | QDir::Dirs);
}
