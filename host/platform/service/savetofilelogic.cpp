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

#include <algorithm>
#include <cerrno>

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
    // Unbuffered: QSaveFile commits a file whose last buffer did not fit on the disk.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    for (qint64 written = 0; written < content.size();) {
        const qint64 more = file.write(content.constData() + written, content.size() - written);
        if (more <= 0)
            return file.errorString();
        written += more;
    }
    if (::fsync(file.handle()) != 0) // commit() syncs too, but goes on when that fails
        return qt_error_string(errno);
    return file.commit() ? QString() : file.errorString();
}

/// A file name, or one in a subfolder.
bool isWithinFolder(const QString& file)
{
    const QStringList names = file.split(QLatin1Char('/'));
    return names.size() <= 2 && std::none_of(names.cbegin(), names.cend(), [](const QString& name) {
               return name.isEmpty() || name == QLatin1String(".") || name == QLatin1String("..");
           });
}

QString write(const AbstractDocument& document, const QString& folder, const QString& file)
{
    if (folder.isEmpty())
        return tr::Tr(QStringLiteral("saveFolderNotConfigured"), QStringLiteral("в настройках нет Register:data")).ui();
    if (!QFileInfo(folder).isDir() || !isWithinFolder(file))
        return qt_error_string(ENOENT);
    const QString path = QDir(folder).filePath(file);
    const QString subfolder = QFileInfo(path).path();
    if (!QFileInfo(subfolder).isDir()) {
        if (!QDir().mkdir(subfolder))
            return qt_error_string(errno);
        if (const QString failure = syncFolder(folder); !failure.isEmpty())
            return failure;
    }
    const QString failure = replaceFile(path, QJsonDocument(document.toJson()).toJson());
    return failure.isEmpty() ? syncFolder(subfolder) : failure;
}

} // namespace

SaveToFileLogic::~SaveToFileLogic() = default;

bool SaveToFileLogic::save(const QSharedPointer<AbstractDocument>& document, const QString& file)
{
    if (!document)
        return false;
    const QString folder = Singleton<Config>::get()->getString(QStringLiteral("Register:data"));
    const QString failure = write(*document, folder, file.isEmpty() ? document->fileName() : file);
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
