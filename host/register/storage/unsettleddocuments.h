// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

/// Notes which documents that are not open have a card operation of which nobody knows whether the money moved, so that
/// the next start finds them among any number of others. A document is noted before such an operation is saved, and is
/// noted until its outcome is: one that is noted may have none.
class UnsettledDocuments
{
public:
    /// @param folder the register's data folder
    explicit UnsettledDocuments(const QString& folder);

    /// Their numbers, the first one noted first. Empty, which is logged, when the note cannot be read.
    QList<int> numbers() const;
    /// A failure is logged, and the operation is settled when the document is voided, returned or resumed.
    void add(int number) const;
    /// The same; the number stays noted after a failure.
    void remove(int number) const;

private:
    void write(const QList<int>& numbers) const;

    QString m_folder;
};
