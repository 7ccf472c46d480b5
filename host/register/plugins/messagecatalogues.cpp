// SPDX-License-Identifier: MIT
#include "messagecatalogues.h"

#include "config.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <QTranslator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// The catalogues of one name, without `.qm`; the one that wins comes last.
QStringList cataloguesOf(const Config& config, const QString& path)
{
    const QString language = config.getString(u"Language:interface"_s);
    if (language.isEmpty()) {
        return {};
    }
    const QString name = u'/' + QFileInfo(path).fileName() + u'_' + language;
    QStringList catalogues;
    for (const QString& folder : config.getString(u"Language:catalogues"_s).split(u':', Qt::SkipEmptyParts)) {
        catalogues.prepend(folder + name);
    }
    catalogues.prepend(path + u'_' + language);
    return catalogues;
}

} // namespace

MessageCatalogues::MessageCatalogues() = default;

MessageCatalogues::~MessageCatalogues() = default;

void MessageCatalogues::load(const QString& path)
{
    for (const QString& catalogue : cataloguesOf(*Singleton<Config>::get(), path)) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(catalogue)) {
            QCoreApplication::installTranslator(translator.get());
            m_installed.push_back(std::move(translator));
        }
    }
}

bool MessageCatalogues::areThere(const Config& config, const QString& path)
{
    const QStringList catalogues = cataloguesOf(config, path);
    return std::any_of(catalogues.cbegin(), catalogues.cend(),
                       [](const QString& catalogue) { return QTranslator().load(catalogue); });
}
