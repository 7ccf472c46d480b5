// SPDX-License-Identifier: MIT
#include "saveddocument.h"

#include "basicexception.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>

namespace
{

Failure failure(const QString& reason)
{
    return {{tr::undefined, reason}, reason};
}

} // namespace

Expected<QSharedPointer<Document>> readSavedDocument(const QString& file)
{
    QFile saved(file);
    if (!saved.open(QIODevice::ReadOnly)) {
        return failure(saved.errorString());
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(saved.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        return failure(error.errorString());
    }
    try {
        return Document::fromJson(json.object());
    } catch (const BasicException& exception) {
        return Failure{exception.tr(), exception.tr().ui()};
    }
}
