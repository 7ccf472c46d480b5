// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "amount.h"
#include "receiptposition.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QSharedPointer>

/// A document of the till: a sale, or the cancelling document that takes a closed sale back.
class Receipt : public AbstractDocument
{
    Q_OBJECT

public:
    /// How far a document has come; it decides where the document is saved.
    enum class State {
        Open,      ///< the cashier works on it
        PutAside,  ///< waits to be taken up again
        Closed,    ///< paid
        Cancelled, ///< given up before it was paid
        Annulled,  ///< declared void after it was put aside or closed
    };

    Receipt(int number, const QDateTime& opened);

    /// The cancelling document of a closed sale: positions of the same numbers with everything that plug-ins have put
    /// on them.
    static QSharedPointer<Receipt> cancelling(const Receipt& sale, int number, const QDateTime& opened);

    int getNumber() const { return m_number; }
    QDateTime getOpened() const { return m_opened; }

    int getType() const override { return m_type; }
    bool isCancelling() const { return m_type == Cancelling; }
    QList<QSharedPointer<GoodsItem>> getPositions() const override;
    const QList<QSharedPointer<ReceiptPosition>>& positions() const { return m_positions; }
    /// The position with that number; null when there is none.
    QSharedPointer<ReceiptPosition> position(int number) const;

    State getState() const { return m_ending.state; }
    /// Closed, cancelled or annulled, and not just being annulled.
    bool isClosed() const override;
    /// receipt.json while it is open; `putaside/<number>.json` or `finished/<number>.json` afterwards.
    QString fileName() const override;
    /// When it was closed or cancelled, or annulled without having been closed; invalid before.
    QDateTime getFinished() const { return m_ending.finished; }
    /// When it was annulled; invalid when it was not.
    QDateTime getAnnulled() const { return m_ending.annulled; }

    /// The sum of all positions, each rounded to kopecks.
    Kopecks getSum() const;
    /// Cash that the customer gave, 0 before the receipt is closed; of a cancelling document: what was paid out.
    Kopecks getReceived() const { return m_ending.received; }
    Kopecks getChange() const { return isCancelling() ? 0 : m_ending.received - getSum(); }

    /// The number of the sale that this document takes back; 0: none.
    int getTakesBack() const { return m_takesBack; }
    /// The number of the document that takes this sale back, or was to; 0: none.
    int getTakenBackBy() const { return m_takenBackBy; }
    void setTakenBackBy(int number) { m_takenBackBy = number; }

    /// Adds a position and gives it the next number; numbers are not given twice.
    QSharedPointer<ReceiptPosition> add(GoodsItem::Goods goods, const QString& barcode);
    /// Takes a position off the receipt; one that is not there is passed over.
    void remove(int number);

    /// What a document's end changes.
    struct Ending {
        State state = State::Open;
        QDateTime finished = {};
        QDateTime annulled = {};
        Kopecks received = 0;
    };
    const Ending& ending() const { return m_ending; }
    void setEnding(const Ending& ending) { m_ending = ending; }

    /// A document that is being annulled is not closed as yet: plug-ins go on saving what they do to it.
    void setBeingAnnulled(bool annulled) { m_beingAnnulled = annulled; }

    /// Writes what plug-ins have put on the positions of `other` onto the positions of the same numbers.
    void takeOverPluginData(const Receipt& other);

    QJsonObject toJson() const override;
    /// The receipt that was saved so.
    ///
    /// Throws BasicException, which says what is wrong, when it is no receipt of this register.
    static QSharedPointer<Receipt> fromJson(const QJsonObject& saved);

private:
    bool hasEnded() const { return m_ending.state != State::Open && m_ending.state != State::PutAside; }
    void readPositions(const QJsonObject& saved);
    void readPluginValues(const QJsonObject& saved);

    int m_number;
    QDateTime m_opened;
    Type m_type = Sale;
    Ending m_ending;
    bool m_beingAnnulled = false;
    int m_takesBack = 0;
    int m_takenBackBy = 0;
    int m_nextPosition = 1;
    QList<QSharedPointer<ReceiptPosition>> m_positions;
};
