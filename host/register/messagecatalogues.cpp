// SPDX-License-Identifier: MIT
#include "messagecatalogues.h"

#include "config.h"

#include <QCoreApplication>
#include <QTranslator>

MessageCatalogues::MessageCatalogues() = default;

MessageCatalogues::~MessageCatalogues() = default;

void MessageCatalogues::load(const QString& path)
{
    const QString language = Singleton<Config>::get()->getString(QStringLiteral("Language:interface"));
    auto translator = std::make_unique<QTranslator>();
    if (language.isEmpty() || !translator->load(path + QLatin1Char('_') + language))
        return;
    QCoreApplication::installTranslator(translator.get());
    m_taken.push_back(std::move(translator));
}
