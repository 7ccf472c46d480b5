// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"
#include "document.h"
#include "documentarchive.h"
#include "documentnumbers.h"
#include "event.h"
#include "opendocumentfile.h"

#include <QObject>
#include <QSharedPointer>

#include <functional>

/// The document that is open at the till, and everything that happens to it.
///
/// Whatever changes the document saves it and makes it known: to the plug-ins as the current document and by events, to
/// the screens by changed().
class Till : public QObject
{
    Q_OBJECT

public:
    /// What the cashier is at. Whatever changes the document goes back to the positions.
    enum class Phase { Positions, Subtotal, Payment };

    /// @param dataFolder where documents are saved
    explicit Till(const QString& dataFolder, QObject* parent = nullptr);
    ~Till() override;

    /// Null between documents.
    QSharedPointer<Document> document() const { return m_document; }
    Phase phase() const { return m_phase; }
    const DocumentArchive& archive() const { return m_archive; }

    /// Prints a closed document, and tells the cashier when it cannot.
    using Printing = std::function<void(const Document&)>;
    void setPrinting(Printing printing);

    // sale.cpp

    /// Opens an empty document; does nothing when one is open.
    void open();

    /// Puts goods on the document, which is opened when there is none.
    /// @return the number of the new position; 0 when a return is open, which takes none
    int add(const SelectedGoods& selected);

    /// Sets the packs of a position; one that is not there, or that belongs to a external document, is passed over.
    void setPacks(int positionNumber, int packs);
    void remove(int positionNumber);

    /// Shows the subtotal, the payment, or the positions again; does nothing without a document.
    void setPhase(Phase phase);

    /// Runs `work` while another document is the current one.
    void withCurrentDocument(const QSharedPointer<AbstractDocument>& document, const std::function<void()>& work);

    // documentchanges.cpp

    /// Takes up the document that was open when the register ended, and finishes what was interrupted. A damaged one,
    /// which has been set aside, is told to the cashier.
    void restore(const OpenDocumentFile::Loaded& loaded);

    /// Closes the document, prints it, and tells event 12.
    /// @param received cash from the customer, at least the sum; of a return: what is paid out
    /// @return false when nothing was changed: there is no document, too little money, or it could not be saved, which
    ///         has been told to the cashier
    bool close(Kopecks received);
    /// Gives the document up and tells event 22; false as for close().
    bool cancel();
    /// Puts the document aside; false as for close(), and for a return, which has to be finished.
    bool suspend();
    /// Goes on with a document that was suspended and tells event 17; false when a document is open or it could not be
    /// saved.
    bool resume(const QSharedPointer<Document>& document);
    /// Opens the return of a closed sale; false when a document is open, when it is no sale that can be
    /// returned, or when it could not be saved.
    bool returnSale(const QSharedPointer<Document>& sale);
    /// Declares a document void that was suspended or closed and tells voided(); false when it could not be saved.
    bool voidDocument(const QSharedPointer<Document>& document);

signals:
    /// The document is another one, was recalculated, or its phase is another one.
    void changed();
    /// @param before suspended or closed
    void voided(const Document& document, Document::State before);

private:
    void makeCurrent(const QSharedPointer<Document>& document);
    void recalculateAndSave();

    // documentchanges.cpp
    bool end(Document::State state, Kopecks received, EActivityListener::Event event);
    bool writeBackToSale() const;
    void notifyRestored();
    void showDamage(const DamagedDocumentFile& damaged) const;

    OpenDocumentFile m_store;
    DocumentArchive m_archive;
    Printing m_printing;
    DocumentNumbers m_numbers;
    QSharedPointer<Document> m_document;
    Phase m_phase = Phase::Positions;
};
