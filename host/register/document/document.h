// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "amount.h"
#include "payment.h"
#include "position.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QSharedPointer>

/// A document of the till: a sale, or the return that returns a closed sale.
class Document : public AbstractDocument
{
    Q_OBJECT

public:
    /// How far a document has come; it decides where the document is saved.
    enum class State {
        Open,      ///< the cashier works on it
        Suspended, ///< waits to be resumed again
        Closed,    ///< paid
        Cancelled, ///< given up before it was paid
        Voided,    ///< declared void after it was suspended or closed
    };

    Document(int number, const QDateTime& opened);

    /// The return of a closed sale: positions of the same numbers with everything that plug-ins have put
    /// on them.
    static QSharedPointer<Document> returnOf(const Document& sale, int number, const QDateTime& opened);

    int getNumber() const { return m_number; }
    QDateTime getOpened() const { return m_opened; }

    int getType() const override { return m_type; }
    bool isReturn() const { return m_type == Return; }
    QList<QSharedPointer<GoodsItem>> getPositions() const override;
    const QList<QSharedPointer<Position>>& positions() const { return m_positions; }
    /// The position with that number; null when there is none.
    QSharedPointer<Position> position(int number) const;

    State getState() const { return m_ending.state; }
    /// Closed, cancelled or voided, and not just being voided.
    bool isClosed() const override;
    /// document.json while it is open; `putaside/<number>.json` or `finished/<number>.json` afterwards.
    QString fileName() const override;
    /// When it was closed or cancelled, or voided without having been closed; invalid before.
    QDateTime getFinished() const { return m_ending.finished; }
    /// When it was voided; invalid when it was not.
    QDateTime getVoided() const { return m_ending.voided; }

    /// The sum of all positions, each rounded to kopecks.
    Kopecks getSum() const;
    /// What the customer gave, 0 before the document is closed; of a return: what was paid out.
    Kopecks getReceived() const { return totalOf(m_ending.payments); }
    Kopecks getChange() const { return isReturn() ? 0 : getReceived() - getSum(); }

    /// The number of the sale that this document takes back; 0: none.
    int getReturnedSale() const { return m_returnedSale; }
    /// The number of the document that takes this sale back, or was to; 0: none.
    int getReturnedBy() const { return m_returnedBy; }
    void setReturnedBy(int number) { m_returnedBy = number; }

    /// Adds a position and gives it the next number; numbers are not given twice.
    QSharedPointer<Position> add(GoodsItem::Goods goods, const QString& barcode);
    /// Takes a position off the document; one that is not there is passed over.
    void remove(int number);

    /// What a document's end changes.
    struct Ending {
        State state = State::Open;
        QDateTime finished = {};
        QDateTime voided = {};
        QList<Payment> payments = {};
    };
    const Ending& ending() const { return m_ending; }
    void setEnding(const Ending& ending) { m_ending = ending; }

    /// A document that is being voided is not closed as yet: plug-ins go on saving what they do to it.
    void setBeingVoided(bool voided) { m_beingVoided = voided; }

    /// Writes what plug-ins have put on the positions of `other` onto the positions of the same numbers.
    void takeOverPluginData(const Document& other);

    QJsonObject toJson() const override;
    /// The document that was saved so.
    ///
    /// Throws BasicException, which says what is wrong, when it is no document of this register.
    static QSharedPointer<Document> fromJson(const QJsonObject& saved);

private:
    bool hasEnded() const { return m_ending.state != State::Open && m_ending.state != State::Suspended; }
    void readPositions(const QJsonObject& saved);
    void readPluginValues(const QJsonObject& saved);

    int m_number;
    QDateTime m_opened;
    Type m_type = Sale;
    Ending m_ending;
    bool m_beingVoided = false;
    int m_returnedSale = 0;
    int m_returnedBy = 0;
    int m_nextPosition = 1;
    QList<QSharedPointer<Position>> m_positions;
};
