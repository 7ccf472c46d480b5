// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"
#include "document.h"
#include "documentarchive.h"
#include "documentnumbers.h"
#include "event.h"
#include "loyaltysystemlayer.h"
#include "obstacle.h"
#include "opendocumentfile.h"

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
    const DocumentArchive& archive() const { return m_archive; }

    /// Prints the receipt of a closed document; shows a failure to the cashier.
    using Printing = std::function<void(const Document&)>;
    void setPrinting(Printing printing);

    // till.cpp

    /// Opens an empty sale; does nothing when a document is open.
    void open();

    /// Adds goods as a position; opens a sale when no document is open.
    /// @return the number of the new position; 0 when there is an obstacleToAddingGoods()
    int add(const SelectedGoods& selected);

    /// Sets the packs of a position. Does nothing for one that does not exist or whose quantity cannot be changed.
    void setPacks(int positionNumber, int packs);
    void remove(int positionNumber);

    /// Shows the subtotal, the payment, or the positions again; does nothing without a document, and when there is an
    /// obstacleToPayment().
    void setPhase(Phase phase);

    /// Runs `work` while another document is the current one.
    void withCurrentDocument(const QSharedPointer<AbstractDocument>& document, const std::function<void()>& work);

    // The rules, which the operations below and above obey: tillrules.cpp
    //
    // Each returns why something cannot be done now, or nothing when it can.

    /// Why an empty sale cannot be opened.
    std::optional<Obstacle> obstacleToOpening() const;
    /// Why no other document can be opened: one is open.
    std::optional<Obstacle> obstacleToAnotherDocument() const;
    /// Why nothing can be done with the open document: none is open. A command begins with one, and a plug-in's trigger
    /// may have ended it.
    std::optional<Obstacle> obstacleToChangingDocument() const;
    std::optional<Obstacle> obstacleToAddingGoods() const;
    std::optional<Obstacle> obstacleToChangingPositions() const;
    static std::optional<Obstacle> obstacleToChangingQuantity(const Position& position);
    /// Why neither the subtotal nor the payment can be shown.
    std::optional<Obstacle> obstacleToPayment() const;
    std::optional<Obstacle> obstacleToSuspending() const;
    std::optional<Obstacle> obstacleToResuming(const Document& document) const;
    std::optional<Obstacle> obstacleToReturning(const Document& sale) const;
    std::optional<Obstacle> obstacleToVoiding(const Document& document) const;
    /// Why its receipt cannot be printed again.
    static std::optional<Obstacle> obstacleToPrinting(const Document& document);
    /// True also while the open document returns it.
    bool isReturned(const Document& sale) const;

    // documentchanges.cpp

    /// Opens the document that was open when the register ended, and finishes what was interrupted. Shows the cashier
    /// when it was damaged; its file has been renamed then.
    void restore(const OpenDocumentFile::Loaded& loaded);

    /// Closes the document, prints its receipt and sends event 12.
    /// @param payments of the customer, together at least the sum; of a return: what is paid out
    /// @return false when nothing changed: no document is open, the payments are too little, or the document could not
    ///         be saved, which has been shown to the cashier
    bool close(const QList<Payment>& payments);
    /// Cancels the document and sends event 22; false as for close().
    bool cancel();
    /// Suspends the document; false as for close(), and when there is an obstacleToSuspending().
    bool suspend();
    /// Opens a suspended document again and sends event 17; false as for close(), and when there is an
    /// obstacleToResuming().
    bool resume(const QSharedPointer<Document>& document);
    /// Opens the return of a closed sale and sends event 10; false as for close(), and when there is an
    /// obstacleToReturning().
    bool returnSale(const QSharedPointer<Document>& sale);
    /// Voids a suspended or closed document and emits voided(); false when it could not be saved, and when there is an
    /// obstacleToVoiding().
    bool voidDocument(const QSharedPointer<Document>& document);

signals:
    /// Another document is open, the document was recalculated, or its phase changed.
    void changed();
    /// @param before what the document was: suspended or closed
    void voided(const Document& document, Document::State before);

private:
    void makeCurrent(const QSharedPointer<Document>& document);
    void recalculateAndSave();

    // documentchanges.cpp
    bool end(const Document::Ending& ending, EActivityListener::Event event);
    bool writeBackToSale() const;
    void notifyRestored();
    void showDamage(const DamagedDocumentFile& damaged) const;

    OpenDocumentFile m_store;
    DocumentArchive m_archive;
    Printing m_printing;
    DocumentNumbers m_numbers;
    QSharedPointer<Document> m_document;
    Phase m_phase = Phase::Positions;
    const std::unique_ptr<LoyaltySystemLayer> m_totals;
};
