// SPDX-License-Identifier: MIT
#include "savetofilelogic.h"

#include "config.h"
#include "dialog.h"
#include "finally.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

template struct MockFactory<SaveToFileLogic>;

const QString SaveToFileLogic::currentReceiptFile = QStringLiteral("receipt.json");

namespace
{

/// Makes the renaming in a folder last through a power cut. Empty, or what went wrong.
QString syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return qt_error_string(errno);
    const Finally closing([descriptor] { ::close(descriptor); });
    if (::fsync(descriptor) == 0 || errno == EINVAL) // EINVAL: a file system that has no such thing
        return {};
    return qt_error_string(errno);
}

/// Replaces the file whole, readable by its owner alone: a receipt tells who buys which medicine. Empty, or what went
/// wrong.
QString replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (file.write(content) != content.size() || !file.commit())
        return file.errorString();
    return {};
}

QString write(const AbstractDocument& document, const QString& folder, const QString& file)
{
    if (folder.isEmpty())
        return QStringLiteral("Register:data");
    if (!QFileInfo(folder).isDir() || QFileInfo(file).fileName() != file)
        return qt_error_string(ENOENT);
    const QString failure = replaceFile(QDir(folder).filePath(file), QJsonDocument(document.toJson()).toJson());
    return failure.isEmpty() ? syncFolder(folder) : failure;
}

} // namespace

SaveToFileLogic::~SaveToFileLogic() = default;

bool SaveToFileLogic::save(const QSharedPointer<AbstractDocument>& document, const QString& file)
{
    if (!document)
        return false;
    const QString folder = Singleton<Config>::get()->getString(QStringLiteral("Register:data"));
    const QString failure = write(*document, folder, file.isEmpty() ? currentReceiptFile : file);
    if (failure.isEmpty())
        return true;

    Log4Qt::LogManager::logger(QStringLiteral("document"))
        ->error(QStringLiteral("A document could not be saved in ") + folder + QStringLiteral(": ") + failure);
    const tr::Tr message(
        QStringLiteral("saveDocumentError"),
        QStringLiteral("Документ не сохранён на диск, в силе прежняя запись.\n"
                       "Папка: %1\nПричина: %2\n"
                       "Освободите место на диске или проверьте доступ к папке и повторите действие."));
    MockFactory<Dialog>::create()->showMessage(message.arg(folder).arg(failure), Dialog::Error, 1, 0);
    return false;
}
