// SPDX-License-Identifier: MIT
#include "filecontent.h"

#include "emulatorerror.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace emulator
{
QByteArray contentOfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw EmulatorError(u"cannot read %1: %2"_s.arg(path, file.errorString()));
    }
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        throw EmulatorError(u"cannot read %1: %2"_s.arg(path, file.errorString()));
    }
    return content;
}
} // namespace emulator
