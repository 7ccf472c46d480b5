// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"
#include "documentarchive.h"
#include "event.h"
#include "receipt.h"
#include "receiptnumbers.h"
#include "receiptstore.h"

#include <QObject>
#include <QSharedPointer>

#include <functional>

/// The document that is open at the till, and everything that happens to it.
///
/// Whatever changes the receipt saves it and makes it known: to the plug-ins as the current document and by events, to
/// the screens by changed().
class Sale : public QObject
{
    Q_OBJECT

public:
    /// What the cashier is at. Whatever changes the receipt goes back to the positions.
    enum class Phase { Positions, Subtotal, Payment };

    /// @param dataFolder where documents are saved
    explicit Sale(const QString& dataFolder, QObject* parent = nullptr);
    ~Sale() override;

    /// Null between receipts.
    QSharedPointer<Receipt> receipt() const { return m_receipt; }
    Phase phase() const { return m_phase; }
    const DocumentArchive& archive() const { return m_archive; }

    /// Prints a closed receipt, and tells the cashier when it cannot.
    using Printing = std::function<void(const Receipt&)>;
    void setPrinting(Printing printing);

    // sale.cpp

    /// Opens an empty receipt; does nothing when one is open.
    void open();

    /// Puts goods on the receipt, which is opened when there is none.
    /// @return the number of the new position; 0 when a cancelling document is open, which takes none
    int add(const SelectedGoods& selected);

    /// Sets the packs of a position; one that is not there, or that belongs to a foreign paper, is passed over.
    void setPacks(int positionNumber, int packs);
    void remove(int positionNumber);

    /// Shows the subtotal, the payment, or the positions again; does nothing without a receipt.
    void setPhase(Phase phase);

    /// Runs `work` while another document is the current one.
    void withCurrentDocument(const QSharedPointer<AbstractDocument>& document, const std::function<void()>& work);

    // documentchanges.cpp

    /// Takes up the receipt that was open when the register ended, and finishes what was interrupted. A damaged one,
    /// which has been set aside, is told to the cashier.
    void restore(const ReceiptStore::Loaded& loaded);

    /// Closes the receipt, prints it, and tells event 12.
    /// @param received cash from the customer, at least the sum; of a cancelling document: what is paid out
    /// @return false when nothing was changed: there is no receipt, too little money, or it could not be saved, which
    ///         has been told to the cashier
    bool close(Kopecks received);
    /// Gives the receipt up and tells event 22; false as for close().
    bool cancel();
    /// Puts the receipt aside; false as for close(), and for a cancelling document, which has to be finished.
    bool putAside();
    /// Goes on with a document that was put aside and tells event 17; false when a receipt is open or it could not be
    /// saved.
    bool takeUp(const QSharedPointer<Receipt>& document);
    /// Opens the cancelling document of a closed sale; false when a receipt is open, when it is no sale that can be
    /// taken back, or when it could not be saved.
    bool takeBack(const QSharedPointer<Receipt>& sale);
    /// Declares a document void that was put aside or closed and tells annulled(); false when it could not be saved.
    bool annul(const QSharedPointer<Receipt>& document);

signals:
    /// The receipt is another one, was recalculated, or its phase is another one.
    void changed();
    /// @param before put aside or closed
    void annulled(const Receipt& document, Receipt::State before);

private:
    void makeCurrent(const QSharedPointer<Receipt>& receipt);
    void recalculateAndSave();

    // documentchanges.cpp
    bool end(Receipt::State state, Kopecks received, EActivityListener::Event event);
    bool writeBackToSale() const;
    void tellRestored();
    void tellDamage(const ReceiptStore::Loaded& loaded) const;

    ReceiptStore m_store;
    DocumentArchive m_archive;
    Printing m_printing;
    ReceiptNumbers m_numbers;
    QSharedPointer<Receipt> m_receipt;
    Phase m_phase = Phase::Positions;
};
