// SPDX-License-Identifier: MIT
#pragma once

#include "archivefolder.h"
#include "beforesaving.h"
#include "cataloguegoods.h"
#include "document.h"
#include "documentarchive.h"
#include "documentnumbers.h"
#include "event.h"
#include "loyaltysystemlayer.h"
#include "obstacle.h"
#include "opendocumentfile.h"
#include "positionmarks.h"
#include "unsettleddocuments.h"

#include <QObject>
#include <QSharedPointer>

#include <functional>
#include <memory>
#include <optional>

/// The place where one document is open, and everything that happens to it.
///
/// Each change saves the document. Plug-ins learn of it as the current document and by events, screens by changed().
class Till : public QObject
{
    Q_OBJECT

public:
    /// How far the open document is. Each change of the document leads back to the positions.
    enum class Phase { Positions, Subtotal, Payment };

    /// @param dataFolder where documents are saved
    explicit Till(const QString& dataFolder, QObject* parent = nullptr);
    ~Till() override;

    /// Null between documents.
    QSharedPointer<Document> document() const { return m_document; }
    Phase phase() const { return m_phase; }
    const ArchiveFolder& archive() const { return m_archive; }

    /// Prints the receipt of a closed document; shows a failure to the cashier.
    using Printing = std::function<void(const Document&)>;
    void setPrinting(Printing printing);

    /// The names of the plug-ins that work now. Until this is set, none does.
    using ActivePlugins = std::function<QStringList()>;
    void setActivePlugins(ActivePlugins plugins);

    /// How plug-ins mark their positions; not owned. Until this is set, none does.
    void setMarks(const PositionMarks& marks) { m_marks = &marks; }
    const PositionMarks& marks() const { return *m_marks; }

    // till.cpp

    /// Opens an empty sale; does nothing when a document is open.
    void open();

    /// Adds goods as a position; opens a sale when no document is open.
    /// @return the number of the new position; 0 when there is an obstacleToAddingGoods(), or one to selling these
    int add(const SelectedGoods& selected);

    /// Raises the packs of the position that holds these goods at this price, and emits positionRaised(). Adds a
    /// position as add() does when there is none, or when its quantity cannot be changed.
    /// @return the number of that position; 0 as for add()
    int addOrRaise(const SelectedGoods& selected);

    /// Sets the packs of a position. Does nothing for one that does not exist or whose quantity cannot be changed.
    void setPacks(int positionNumber, double packs);
    /// Does nothing for a position that does not exist, and when there is an obstacleToChangingPositions() or an
    /// obstacleOfPlugin().
    void remove(int positionNumber);
    /// Saves the open document as it is; shows a failure to the cashier. Does nothing between documents.
    void save() const;

    /// Shows the subtotal, the payment, or the positions again; does nothing without a document, and when there is an
    /// obstacleToPayment().
    void setPhase(Phase phase);

    /// Runs `work` while another document is the current one.
    void withCurrentDocument(const QSharedPointer<AbstractDocument>& document, const std::function<void()>& work);

    // The rules, which the operations below and above obey: tillrules.cpp
    //
    // Each returns why something cannot be done now, or nothing when it can.

    /// Why neither subtotal, payment, cancelling, returning nor voiding is possible: a position of the document belongs
    /// to a plug-in that does not work, and its server would not learn of it, or such a plug-in does not know yet what
    /// its server holds of it. A position from an external document that
    /// names no plug-in was saved by a register that did not note it; it waits until any plug-in works.
    std::optional<Obstacle> obstacleOfPlugins(const Document& document) const;
    /// The same for removing one position of the open document.
    std::optional<Obstacle> obstacleOfPlugin(const Position& position) const;
    /// Why an empty sale cannot be opened.
    std::optional<Obstacle> obstacleToOpening() const;
    /// Why no other document can be opened: one is open.
    std::optional<Obstacle> obstacleToAnotherDocument() const;
    /// Why nothing can be done with the open document: none is open. A command begins with one, and a plug-in's trigger
    /// may have ended it.
    std::optional<Obstacle> obstacleToChangingDocument() const;
    /// Why a command cannot go on after it waited for the cashier or a terminal: another document is open by now, or
    /// none.
    std::optional<Obstacle> obstacleToGoingOn(const QSharedPointer<Document>& document) const;
    std::optional<Obstacle> obstacleToAddingGoods() const;
    std::optional<Obstacle> obstacleToChangingPositions() const;
    std::optional<Obstacle> obstacleToChangingQuantity(const Position& position) const;
    /// Why neither the subtotal nor the payment can be shown.
    std::optional<Obstacle> obstacleToPayment() const;
    std::optional<Obstacle> obstacleToCancelling() const;
    /// A return, and a sale with money from a card, are suspended only while there is an obstacleOfPlugins(), or while
    /// there are PositionMarks::undecidedPlugins() of a position, so that the till can go on.
    std::optional<Obstacle> obstacleToSuspending() const;
    std::optional<Obstacle> obstacleToResuming(const Document& document) const;
    /// Why no position of the sale can be returned.
    std::optional<Obstacle> obstacleToReturning(const Document& sale) const;
    /// Why these positions cannot be returned.
    /// @param positions their numbers
    std::optional<Obstacle> obstacleToReturning(const Document& sale, const QSet<int>& positions) const;
    std::optional<Obstacle> obstacleToVoiding(const Document& document) const;
    /// Why its receipt cannot be printed again.
    std::optional<Obstacle> obstacleToPrinting(const Document& document) const;
    /// Why nothing but voiding and, while no money was paid back, returning is left for a sale: its voiding has begun.
    std::optional<Obstacle> obstacleOfVoiding(const Document& document) const;
    /// What a document that is open or suspended returns counts.
    Document::Returned returned(const Document& sale) const;
    /// The positions of the sale that can still be returned.
    QSet<int> returnablePositions(const Document& sale) const;

    // documentchanges.cpp

    /// Opens the document that was open when the register ended, and finishes what was interrupted. Shows the cashier
    /// when it was damaged; its file has been renamed then.
    void restore(const OpenDocumentFile::Loaded& loaded);

    /// Closes the document, prints its receipt and sends event 12.
    /// @param payments of the customer, together at least the sum; of a return: what is paid out
    /// @return false when nothing changed: no document is open, the payments are too little, there is an
    ///         obstacleToPayment(), a card operation is unsettled, or the document could not be saved, which has been
    ///         shown to the cashier
    bool close(const QList<Payment>& payments);
    /// Cancels the document and sends event 22; false as for close(), and when there is an obstacleToCancelling().
    bool cancel();
    /// Suspends the document; false as for close(), and when there is an obstacleToSuspending().
    bool suspend();
    /// Opens a suspended document again and sends event 17; false as for close(), and when there is an
    /// obstacleToResuming().
    bool resume(const QSharedPointer<Document>& document);
    /// Opens the return of all that is left of a closed sale, and sends event 10; false as for close(), and when there
    /// is an obstacleToReturning().
    bool returnSale(const QSharedPointer<Document>& sale);
    /// The same with some positions of the sale.
    /// @param positions their numbers; those that cannot be returned are passed over
    /// @return false also when none is left, and when there is an obstacleToReturning() the others
    bool returnPositions(const QSharedPointer<Document>& sale, const QSet<int>& positions);
    /// Voids a suspended or closed document and emits voided(); false when it could not be saved, and when there is an
    /// obstacleToVoiding().
    bool voidDocument(const QSharedPointer<Document>& document);

    // cardmoney.cpp

    /// What the customer still has to pay for the open document; of a return: what is still to be paid out.
    Kopecks due() const;
    /// What of the sum of a return, or of a sale that is being voided, goes back to cards: for each payment by card its
    /// operation, with the amount that goes back to that card.
    QList<CardOperation> owedToCards(const Document& document) const;
    /// Adds a card operation to a document, or replaces the one with its reference, and saves the document.
    /// @return false after a failure was shown: a new operation is then not on the document, a change of one is
    bool recordOrShow(const QSharedPointer<Document>& document, const CardOperation& operation);
    /// The documents that are not open, and have a card operation of which nobody knows whether the money moved.
    QList<QSharedPointer<Document>> unsettledDocuments() const;

signals:
    /// Another document is open, the document was recalculated, or its phase changed.
    void changed();
    /// A position that was there before has more packs.
    void positionRaised(int positionNumber);
    /// @param before what the document was: suspended or closed
    void voided(const Document& document, Document::State before);

private:
    void makeCurrent(const QSharedPointer<Document>& document);
    QSharedPointer<Position> positionToRaise(const SelectedGoods& selected) const;
    void recalculateAndSave();
    std::optional<QString> idlePlugin(const Position& position) const;
    bool isServed(const Position& position) const { return !idlePlugin(position); }
    QSharedPointer<Position> unserved(const Document& document) const;
    bool isUndecided(const Document& document) const;
    QString meanwhile(const Document& document) const;
    Obstacle pluginMissing(const Document& document, const Position& position) const;
    std::optional<Obstacle> obstacleWhileCharged() const;
    std::optional<Obstacle> obstacleToReturningAny(const Document& sale) const;

    // documentchanges.cpp
    bool end(const Document::Ending& ending, EActivityListener::Event event);
    bool writeBackToSale() const;
    int nextClosing();
    void notifyRestored();
    void showDamage(const DamagedDocumentFile& damaged) const;

    OpenDocumentFile m_store;
    ArchiveFolder m_archive;
    UnsettledDocuments m_unsettled;
    Printing m_printing;
    ActivePlugins m_activePlugins;
    const PositionMarks* m_marks;
    DocumentNumbers m_numbers;
    std::optional<int> m_closings; ///< so many so far; not counted yet
    QSharedPointer<Document> m_document;
    Phase m_phase = Phase::Positions;
    const std::unique_ptr<LoyaltySystemLayer> m_totals;
    const std::unique_ptr<BeforeSaving> m_beforeSaving;
    const std::unique_ptr<DocumentArchive> m_documentsForPlugins;
};
