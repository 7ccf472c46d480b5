// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

/// The documents that are not open: those suspended and the finished ones, each in a file of its own.
///
/// A document changes its place by being saved in the new one before the old file is removed. Where the register ended
/// in between, the more advanced copy counts: finished before open, open before suspended.
class DocumentArchive
{
public:
    /// @param folder the register's data folder
    explicit DocumentArchive(const QString& folder);

    /// Gives the document another ending and saves it where that puts it; the former file is removed.
    ///
    /// @return false when it could not be saved: the cashier has been told, document and file are as they were
    bool move(const QSharedPointer<Document>& document, const Document::Ending& ending) const;
    /// Saves the document where it is; a failure has been told to the cashier when it returns false.
    bool save(const QSharedPointer<Document>& document) const;

    /// The document suspended, or finished, under that number; null when there is none that can be read.
    QSharedPointer<Document> find(int number) const;
    /// Not when its file is damaged: then a copy in another place is all that there is.
    bool isFinished(int number) const;

    /// Those suspended and the latest `limit` finished ones, the latest first. A file that cannot be read is logged and
    /// passed over.
    QList<QSharedPointer<Document>> latest(int limit) const;

    /// The greatest number that a document has; 0: there are none.
    int greatestNumber() const;

    /// True when the sale was returned, or is being returned by `open`, the open document (null: none).
    bool isReturned(const Document& sale, const QSharedPointer<Document>& open) const;

    /// Removes the copies that an interrupted change of place left behind.
    /// @param open the document that was open when the register ended; null: none
    /// @return that document; null when it is finished
    QSharedPointer<Document> tidyUp(const QSharedPointer<Document>& open) const;

private:
    QList<int> numbers(const QString& place) const;
    QSharedPointer<Document> read(const QString& place, int number) const;
    void removeFile(const QString& file) const;

    QString m_folder;
};
