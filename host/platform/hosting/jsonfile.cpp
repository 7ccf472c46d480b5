// SPDX-License-Identifier: MIT
#include "jsonfile.h"

#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{

Failure damaged(const QString& file, const QString& reason)
{
    return {tr::Tr(u"jsonFileDamaged"_s, u"Файл %1 повреждён.\nОбратитесь к администратору."_s).arg(file),
            file + u": "_s + reason};
}

} // namespace

Expected<QJsonObject> readJsonObject(const QString& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        return Failure{tr::Tr(u"jsonFileNotReadable"_s, u"Файл %1 не читается: %2\nОбратитесь к администратору."_s)
                           .arg(file)
                           .arg(source.errorString()),
                       file + u": "_s + source.errorString()};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(source.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        return damaged(file, u"byte %1: %2"_s.arg(error.offset).arg(error.errorString()));
    }
    if (!document.isObject()) {
        return damaged(file, u"not a JSON object"_s);
    }
    return document.object();
}
