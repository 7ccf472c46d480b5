// SPDX-License-Identifier: MIT
#pragma once

#include "documentarchive.h"
#include "documentwatcher.h"

class Till;

/// The register's documents as plug-ins see them, for as long as it lives.
class TillArchive : public DocumentArchive, private DocumentWatcher
{
public:
    /// @param till not owned
    explicit TillArchive(const Till& till);
    ~TillArchive() override;
    Q_DISABLE_COPY_MOVE(TillArchive)

    QList<QSharedPointer<AbstractDocument>> documentsOf(const QDate& day) const override;
    QSharedPointer<AbstractDocument> document(const QString& identifier) const override;

private:
    const Till& m_till;
    DocumentArchive* const m_former = Singleton<DocumentArchive>::instance;
};
