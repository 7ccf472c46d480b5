// SPDX-License-Identifier: MIT
#include "saveddocument.h"

#include "basicexception.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>

SavedDocument SavedDocument::read(const QString& file)
{
    QFile saved(file);
    if (!saved.open(QIODevice::ReadOnly)) {
        return {nullptr, saved.errorString()};
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(saved.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        return {nullptr, error.errorString()};
    }
    try {
        return {Document::fromJson(json.object()), {}};
    } catch (const BasicException& wrong) {
        return {nullptr, wrong.tr().ui()};
    }
}
