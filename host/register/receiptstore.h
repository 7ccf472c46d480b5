// SPDX-License-Identifier: MIT
#pragma once

#include "receipt.h"

#include <QSharedPointer>
#include <QString>

/// The open receipt on disk.
class ReceiptStore
{
public:
    /// @param folder the register's data folder
    explicit ReceiptStore(const QString& folder);

    /// Where the open receipt is saved.
    const QString& file() const { return m_file; }

    /// Saves the receipt as the open one; a failure has been told to the cashier when it returns false.
    bool save(const QSharedPointer<Receipt>& receipt) const;

    /// What load() found.
    struct Loaded {
        QSharedPointer<Receipt> receipt; ///< null: no open receipt was saved, or it was damaged
        QString damage;                  ///< what is wrong with the file; empty: nothing
        QString setAside;                ///< where the damaged file was put; empty: it could not be moved

        /// A damaged file stands where the next receipt would be saved over it.
        bool isInTheWay() const { return !damage.isEmpty() && setAside.isEmpty(); }
    };

    /// Reads the open receipt back. A damaged file is renamed to `<name>.damaged-<timestamp>`; where that fails, no
    /// receipt may be saved in this folder.
    Loaded load() const;

private:
    QString m_file;
};
