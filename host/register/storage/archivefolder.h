// SPDX-License-Identifier: MIT
#pragma once

#include "closingcount.h"
#include "document.h"
#include "expected.h"

#include <QDate>
#include <QList>
#include <QSet>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <optional>

/// The documents that are not open: the suspended and the finished ones, each in its own file.
///
/// A document moves by being saved in its new place before the old file is removed. When the register ended in between,
/// there are two copies. The more advanced one counts: finished before open, open before suspended.
class ArchiveFolder
{
public:
    /// @param folder the register's data folder
    explicit ArchiveFolder(const QString& folder);

    /// Sets the ending, saves the document in the place for it, and removes the former file.
    /// @return false after a failure was shown; the document and its file are then unchanged
    bool moveOrShow(const QSharedPointer<Document>& document, const Document::Ending& ending) const;
    /// Saves the document in its place.
    /// @return false after a failure was shown
    bool saveOrShow(const QSharedPointer<Document>& document) const;

    /// The finished or suspended document with that number; null when there is none, or none that can be read.
    QSharedPointer<Document> find(int number) const;
    /// False when its file is damaged: a copy in another place is then the only one left.
    bool isFinished(int number) const;

    /// All suspended documents, latest first. A file that cannot be read is logged and left out.
    QList<QSharedPointer<Document>> allSuspended() const { return latest(0); }
    /// All suspended documents and the latest `limit` finished ones, latest first. A file that cannot be read is logged
    /// and left out.
    QList<QSharedPointer<Document>> latest(int limit) const;

    /// The document that was closed last, by the count of closings; where none is counted, the one of the greatest
    /// number. Null when none is closed. Looks at the latest hundred finished documents and at the one that was noted
    /// last; at all of them when none was noted.
    QSharedPointer<Document> lastClosed() const;
    /// How many closings were begun.
    int closings() const;
    /// Notes a closing before the document is saved as closed.
    void noteClosing(const ClosingCount::Closing& closing) const { m_closings.note(closing); }

    /// The documents that were opened or finished on that day, latest first: all suspended ones and at most `limit`
    /// finished ones. Reads no others but a few, however many there are: numbers follow time. A document that was
    /// opened on an earlier day is found when it is one of the last 50 before that day.
    QList<QSharedPointer<Document>> ofDay(QDate day, int limit) const;

    /// The greatest number of a document, readable or not; 0: there are none.
    int greatestNumber() const;

    /// The numbers of the positions that were returned, or are being returned by a suspended document or by the open
    /// document `open` (null: none is open). Where a return cannot be read, all count: the money may have been paid out
    /// already.
    QSet<int> returnedPositions(const Document& sale, const QSharedPointer<Document>& open) const;

    /// A return that cannot be read: nobody knows which positions came back, and whether the money was paid out.
    struct DamagedReturn {
        int number = 0;
        QStringList files; ///< relative to the data folder; of several that were set aside, one may be it
    };
    /// The first return of the sale that cannot be read; nothing when there is none. One that is nowhere counts when an
    /// open document was damaged and its file is still set aside.
    std::optional<DamagedReturn> damagedReturn(const Document& sale, const QSharedPointer<Document>& open) const;

    Document::Returned returned(const Document& sale, const QSharedPointer<Document>& open) const;
    /// The card operations of the finished and suspended returns of the sale.
    QList<CardOperation> cardOperationsOfReturns(const Document& sale) const;

    /// Removes the copies that an interrupted move left behind.
    /// @param open the document that was open when the register ended; null: none
    /// @return `open`; null when that document is finished
    QSharedPointer<Document> tidyUp(const QSharedPointer<Document>& open) const;

private:
    /// A finished or suspended return; null: it was never saved, or is of another sale.
    using ReadReturn = Expected<QSharedPointer<Document>, DamagedReturn>;
    ReadReturn readReturn(const Document& sale, int number) const;
    QList<int> numbers(const QString& place) const;
    qsizetype firstOpenedFrom(const QList<int>& numbers, QDate day) const;
    QSharedPointer<Document> read(const QString& place, int number) const;
    void removeFile(const QString& file) const;

    QString m_folder;
    ClosingCount m_closings;
};
