// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "amount.h"
#include "cardoperation.h"
#include "payment.h"
#include "position.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QSet>
#include <QSharedPointer>

#include <optional>

/// A document of the till: a sale, or the return of a closed sale.
class Document : public AbstractDocument
{
    Q_OBJECT

public:
    /// Decides where the document is saved.
    enum class State {
        Open,      ///< the cashier works on it
        Suspended, ///< waits to be resumed
        Closed,    ///< paid
        Cancelled, ///< given up before it was paid
        Voided,    ///< undone after it was suspended or closed
    };

    Document(int number, const QDateTime& opened);

    /// A return of the closed sale `sale`. It has the same positions with the same numbers, and the same plug-in data.
    static QSharedPointer<Document> returnOf(const Document& sale, int number, const QDateTime& opened);
    /// The same with some positions of the sale alone.
    static QSharedPointer<Document> returnOf(const Document& sale, const QSet<int>& positions, int number,
                                             const QDateTime& opened);

    int getNumber() const { return m_number; }
    QDateTime getOpened() const { return m_opened; }

    int getType() const override { return m_type; }
    bool isReturn() const { return m_type == Return; }
    QList<QSharedPointer<GoodsItem>> getPositions() const override;
    const QList<QSharedPointer<Position>>& positions() const { return m_positions; }
    /// Null when no position has that number.
    QSharedPointer<Position> position(int number) const;
    /// The place of a position among the others, from 1, as it is shown and printed: its number stays when one before
    /// it is removed. 0 when it is not among them.
    int placeOf(const Position& position) const;

    State getState() const { return m_ending.state; }
    /// True when it is closed, cancelled or voided; false while it is being voided.
    bool isClosed() const override;
    /// `receipt.json` while it is open, `putaside/<number>.json` while it is suspended, otherwise
    /// `finished/<number>.json`.
    QString fileName() const override;
    /// Its number.
    QString identifier() const override;
    bool isUndone() const override;
    /// When it was closed or cancelled, or voided without having been closed; invalid until then.
    QDateTime getFinished() const { return m_ending.finished; }
    /// Invalid when it was not voided.
    QDateTime getVoided() const { return m_ending.voided; }

    /// The sum of all positions, each rounded to kopecks.
    Kopecks getSum() const;
    /// The packs of these goods, in all positions.
    double packsOf(const GoodsKey& goods) const;
    /// What the customer gave, for a return what was paid out. 0 until the document is closed.
    Kopecks getReceived() const { return totalOf(m_ending.payments); }
    Kopecks getChange() const { return isReturn() ? Kopecks{} : getReceived() - getSum(); }

    /// The number of the sale that this return takes back; 0: this document is a sale.
    int getReturnedSale() const { return m_returnedSale; }
    /// The number of this sale's latest return, which may have been cancelled; 0: there was none.
    int getReturnedBy() const { return m_returns.isEmpty() ? 0 : m_returns.last(); }
    /// How much of a sale was returned.
    enum class Returned { Nothing, Partly, Wholly };
    /// The numbers of all returns of this sale, the latest last; some may have been cancelled.
    const QList<int>& returns() const { return m_returns; }
    void addReturn(int number) { m_returns.append(number); }

    /// What card terminals were asked for this document, in order.
    const QList<CardOperation>& cardOperations() const { return m_cardOperations; }
    /// Adds the operation, or replaces the one with its reference.
    void setCardOperation(const CardOperation& operation);
    /// Does nothing when no operation has that reference.
    void removeCardOperation(const QString& reference);
    /// A reference that no other card operation has, in this data folder or another.
    QString nextCardReference() const;
    /// The operation of which nobody knows whether the money moved; nothing when all are settled.
    std::optional<CardOperation> unsettledCardOperation() const;
    /// What is on this document by card and has not been given back.
    Kopecks getCharged() const { return cardoperations::totalOf(cardoperations::charged(m_cardOperations)); }
    /// True when money of a payment by card was given back, to the card or in cash.
    bool hasPaidBack() const { return cardoperations::havePaidBack(m_cardOperations); }
    /// The same; true also when nobody knows whether it was.
    bool mayHavePaidBack() const { return cardoperations::mayHavePaidBack(m_cardOperations); }
    /// What has been given back to cards for this document.
    Kopecks getRefunded() const
    {
        return cardoperations::totalOf(cardoperations::approved(m_cardOperations, CardOperation::Kind::Refund));
    }
    /// What has been paid out in cash for payments by card.
    Kopecks getRefundedInCash() const
    {
        return cardoperations::totalOf(cardoperations::approved(m_cardOperations, CardOperation::Kind::CashRefund));
    }

    /// Adds a position with the next number. The number of a removed position is not used again.
    /// @param barcode, code of the goods in the catalogue
    QSharedPointer<Position> add(GoodsItem::Goods goods, const QString& barcode, const QString& code = {});
    /// Does nothing when no position has that number.
    void remove(int number);

    /// Where the document stands, and what came with its end. An open document and a suspended one have a state and
    /// nothing else.
    struct Ending {
        State state = State::Open;
        /// Counts the closings in the data folder from 1, whatever the clock says. 0: never closed, or closed by a
        /// register that did not count.
        int closing = 0;
        QDateTime finished = {};
        QDateTime voided = {};
        QList<Payment> payments = {};
        /// Of a closed sale: its voiding has begun and has not ended. What came from external documents may be
        /// cancelled, or money paid back.
        bool voidingBegun = false;
    };
    const Ending& ending() const { return m_ending; }
    void setEnding(const Ending& ending) { m_ending = ending; }

    bool isVoidingBegun() const { return m_ending.voidingBegun; }
    void setVoidingBegun(bool begun) { m_ending.voidingBegun = begun; }

    /// A document that is being voided does not count as closed, so that plug-ins still save their changes to it.
    void setBeingVoided(bool voided) { m_beingVoided = voided; }

    /// Copies the plug-in data of the positions of `other` to the positions with the same numbers.
    void takeOverPluginData(const Document& other);

    QJsonObject toJson() const override;
    /// Reads what toJson() wrote. Throws BasicException with the reason when `saved` is no document of this register.
    static QSharedPointer<Document> fromJson(const QJsonObject& saved);

private:
    bool hasEnded() const { return m_ending.state != State::Open && m_ending.state != State::Suspended; }
    void readReturns(const QJsonObject& saved);
    void readCardOperations(const QJsonObject& saved);
    void readPositions(const QJsonObject& saved);
    void readPluginValues(const QJsonObject& saved);

    int m_number;
    QDateTime m_opened;
    Type m_type = Sale;
    Ending m_ending;
    bool m_beingVoided = false;
    int m_returnedSale = 0;
    QList<int> m_returns;
    QList<CardOperation> m_cardOperations;
    int m_nextPosition = 1;
    QList<QSharedPointer<Position>> m_positions;
};
