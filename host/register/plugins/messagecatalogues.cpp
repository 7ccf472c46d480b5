// SPDX-License-Identifier: MIT
#include "messagecatalogues.h"

#include "config.h"

#include <QCoreApplication>
#include <QTranslator>

using namespace Qt::StringLiterals;

MessageCatalogues::MessageCatalogues() = default;

MessageCatalogues::~MessageCatalogues() = default;

void MessageCatalogues::load(const QString& path)
{
    const QString language = Singleton<Config>::get()->getString(u"Language:interface"_s);
    auto translator = std::make_unique<QTranslator>();
    if (language.isEmpty() || !translator->load(path + u'_' + language)) {
        return;
    }
    QCoreApplication::installTranslator(translator.get());
    m_installed.push_back(std::move(translator));
}
