// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QSharedPointer>
#include <QString>

/// The till's documents during one command. Each is read once, so that what the command has changed in one is seen when
/// the next one is looked at.
class TillDocuments
{
public:
    using Documents = QList<QSharedPointer<AbstractDocument>>;

    /// See DocumentArchive::documentsOf(). An invalid day counts as today.
    Documents ofDay(const QDate& day);
    /// Those of all days from that one until today.
    Documents since(const QDate& first);
    /// See DocumentArchive::document(). Null: the till has none.
    QSharedPointer<AbstractDocument> find(const QString& identifier);

private:
    QSharedPointer<AbstractDocument> sole(const QSharedPointer<AbstractDocument>& document);

    QHash<QString, QSharedPointer<AbstractDocument>> m_documents; ///< by identifier
    QHash<QDate, Documents> m_days;
};
