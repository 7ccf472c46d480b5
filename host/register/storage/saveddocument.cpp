// SPDX-License-Identifier: MIT
#include "saveddocument.h"

#include "basicexception.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>

Expected<QSharedPointer<Document>> readSavedDocument(const QString& file)
{
    QFile saved(file);
    if (!saved.open(QIODevice::ReadOnly)) {
        return untranslatedFailure(saved.errorString());
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(saved.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        return untranslatedFailure(error.errorString());
    }
    try {
        return Document::fromJson(json.object());
    } catch (const BasicException& exception) {
        return Failure{exception.tr(), exception.tr().ui()};
    }
}
