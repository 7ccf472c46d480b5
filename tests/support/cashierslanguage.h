// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

/// The language of all texts for as long as it lives. Russian is that of the sources; any other one comes from message
/// catalogues.
class CashiersLanguage
{
public:
    /// @param language "ru", or that of the catalogues: `<path>_<language>.qm`
    /// @param paths files or Qt resources, without the language
    CashiersLanguage(const char* language, const QStringList& paths)
    {
        if (QLatin1StringView(language) == QLatin1StringView("ru")) {
            return;
        }
        for (const QString& path : paths) {
            auto& translator = m_translators.emplace_back(std::make_unique<QTranslator>());
            EXPECT_TRUE(translator->load(path + u'_' + QLatin1StringView(language))) << path.toStdString();
            QCoreApplication::installTranslator(translator.get());
        }
    }
    Q_DISABLE_COPY_MOVE(CashiersLanguage)

private:
    std::vector<std::unique_ptr<QTranslator>> m_translators; ///< one that is destroyed is not installed any more
};
