// SPDX-License-Identifier: MIT
#include "wholefile.h"

#include "finally.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

Failure failure(const QString& path, const QString& systemsWords)
{
    return {tr::Tr(tr::undefined, systemsWords), path + u": "_s + systemsWords};
}

/// Makes the renaming in a folder last through a power cut.
Expected<void> syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return failure(folder, qt_error_string(errno));
    }
    const Finally closing([descriptor] { ::close(descriptor); });
    if (::fsync(descriptor) == 0 || errno == EINVAL) // EINVAL: a file system that has no such thing
    {
        return {};
    }
    return failure(folder, qt_error_string(errno));
}

Expected<void> replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    // Unbuffered: QSaveFile commits a file whose last buffer did not fit on the disk.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return failure(path, file.errorString());
    }
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    for (qint64 written = 0; written < content.size();) {
        const qint64 more = file.write(content.constData() + written, content.size() - written);
        if (more <= 0) {
            return failure(path, file.errorString());
        }
        written += more;
    }
    if (::fsync(file.handle()) != 0) // commit() syncs too, but goes on when that fails
    {
        return failure(path, qt_error_string(errno));
    }
    if (!file.commit()) {
        return failure(path, file.errorString());
    }
    return {};
}

/// A file name, or one in a subfolder.
bool isWithinFolder(const QString& file)
{
    const QStringList names = file.split(u'/');
    return names.size() <= 2 && std::none_of(names.cbegin(), names.cend(), [](const QString& name) {
               return name.isEmpty() || name == "."_L1 || name == ".."_L1;
           });
}

} // namespace

Expected<void> writeWholeFile(const QString& folder, const QString& file, const QByteArray& content)
{
    const QString path = QDir(folder).filePath(file);
    if (!QFileInfo(folder).isDir() || !isWithinFolder(file)) {
        return failure(path, qt_error_string(ENOENT));
    }
    const QString subfolder = QFileInfo(path).path();
    if (!QFileInfo(subfolder).isDir()) {
        if (!QDir().mkdir(subfolder)) {
            return failure(subfolder, qt_error_string(errno));
        }
        if (Expected<void> synced = syncFolder(folder); !synced) {
            return synced;
        }
    }
    Expected<void> replaced = replaceFile(path, content);
    return replaced ? syncFolder(subfolder) : replaced;
}
