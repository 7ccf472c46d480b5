// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"
#include "receipt.h"
#include "receiptnumbers.h"
#include "receiptstore.h"

#include <QObject>
#include <QSharedPointer>

/// The receipt that is open at the till, and everything that happens to it.
///
/// Whatever changes the receipt saves it and makes it known: to the plug-ins as the current document and by events, to
/// the screens by changed().
class Sale : public QObject
{
    Q_OBJECT

public:
    /// @param dataFolder where the open receipt is saved
    explicit Sale(const QString& dataFolder, QObject* parent = nullptr);
    ~Sale() override;

    /// Null between receipts.
    QSharedPointer<Receipt> receipt() const { return m_receipt; }

    /// Opens an empty receipt; does nothing when one is open.
    void open();

    /// Puts goods on the receipt, which is opened when there is none.
    /// @return the number of the new position
    int add(const SelectedGoods& selected);

    /// Sets the packs of a position; one that is not there is passed over.
    void setPacks(int positionNumber, int packs);
    void remove(int positionNumber);

    /// Takes up the receipt that was open when the register ended. A damaged one, which has been set aside, is told to
    /// the cashier.
    void restore(const ReceiptStore::Loaded& loaded);

signals:
    /// The receipt is another one, or was recalculated.
    void changed();

private:
    void makeCurrent(const QSharedPointer<Receipt>& receipt);
    void recalculateAndSave();
    void tellDamage(const ReceiptStore::Loaded& loaded) const;

    ReceiptStore m_store;
    ReceiptNumbers m_numbers;
    QSharedPointer<Receipt> m_receipt;
};
