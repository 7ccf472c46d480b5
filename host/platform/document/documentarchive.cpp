// SPDX-License-Identifier: MIT
#include "documentarchive.h"

template struct Singleton<DocumentArchive>;

DocumentArchive::~DocumentArchive() = default;

QList<QSharedPointer<AbstractDocument>> DocumentArchive::documentsOf(const QDate& /*day*/) const
{
    return {};
}

QSharedPointer<AbstractDocument> DocumentArchive::document(const QString& /*identifier*/) const
{
    return nullptr;
}
