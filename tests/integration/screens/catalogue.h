// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QStringList>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

/// The texts of the message catalogues of all programs, as the cashier reads them.
/// @param sources the project's folder
/// @param language "ru" or "en"
inline QStringList textsOfCatalogues(const QString& sources, const char* language)
{
    using namespace Qt::StringLiterals;
    const bool isRussian = QLatin1StringView(language) == "ru"_L1;
    QStringList texts;
    for (const char* catalogue :
         {"host/platform/translations/registerplatform", "host/register/translations/pharmacyregister",
          "plugin/translations/electronicprescription", "recovery/translations/dispenserecovery"}) {
        QFile file(sources + u'/' + QLatin1StringView(catalogue) + u"_en.ts"_s);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << catalogue;
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement &&
                xml.name() == (isRussian ? u"source"_s : u"translation"_s)) {
                texts.append(xml.readElementText());
            }
        }
    }
    return texts;
}
