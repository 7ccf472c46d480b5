// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QMap>
#include <QString>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

/// The file's text, from UTF-8. The test fails when the file cannot be read.
inline QString readText(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

struct Message {
    QString source; ///< the Russian default text
    QString translation;
};

/// The messages of a catalogue by their keys. The test fails for a key that comes twice and for an unfinished message.
///
/// @param file a `.ts` file, whose messages have the keys as ids
inline QMap<QString, Message> readMessageCatalogue(const QString& file)
{
    QMap<QString, Message> all;
    QString id;
    QXmlStreamReader xml(readText(file));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == u"message") {
            id = xml.attributes().value(QLatin1StringView("id")).toString();
            EXPECT_FALSE(all.contains(id)) << id.toStdString() << " comes twice";
        } else if (xml.name() == u"source") {
            all[id].source = xml.readElementText();
        } else if (xml.name() == u"translation") {
            EXPECT_FALSE(xml.attributes().hasAttribute(QLatin1StringView("type")))
                << id.toStdString() << " is unfinished";
            all[id].translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return all;
}
