// SPDX-License-Identifier: MIT
#include "activitynotifier.h"
#include "currenttime.h"
#include "dialog.h"
#include "requestjournal.h"
#include "till.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
QDateTime now()
{
    return CurrentTime::create()->current();
}
} // namespace

void Till::restore(const OpenDocumentFile::Loaded& loaded)
{
    m_numbers.pass(m_archive.greatestNumber());
    const QSharedPointer<Document> saved = loaded ? *loaded : nullptr;
    if (saved) {
        m_numbers.pass(saved->getNumber());
    }
    const QSharedPointer<Document> open = m_archive.tidyUp(saved);
    if (!loaded) {
        showDamage(loaded.failure()); // only now: a key pressed before may open a document while the message is shown
    }
    if (!open) {
        return;
    }
    makeCurrent(open);
    notifyRestored();
}

bool Till::close(const QList<Payment>& payments)
{
    if (!m_document || totalOf(payments) < m_document->getSum() || obstacleToPayment() ||
        m_document->unsettledCardOperation()) {
        return false;
    }
    if (m_document->isReturn() && !writeBackToSale()) {
        return false;
    }
    return end({.state = Document::State::Closed, .closing = nextClosing(), .finished = now(), .payments = payments},
               EActivityListener::DocumentClosed);
}

bool Till::cancel()
{
    if (!m_document || obstacleToCancelling() || m_document->getCharged() > Kopecks{0} ||
        m_document->unsettledCardOperation() || (m_document->isReturn() && !writeBackToSale())) {
        return false;
    }
    return end({.state = Document::State::Cancelled, .finished = now()}, EActivityListener::DocumentCancelled);
}

bool Till::suspend()
{
    if (!m_document || obstacleToSuspending()) {
        return false;
    }
    if (m_document->unsettledCardOperation()) {
        m_unsettled.add(m_document->getNumber());
    }
    if (!m_archive.moveOrShow(m_document, {.state = Document::State::Suspended})) {
        return false;
    }
    makeCurrent(nullptr);
    emit changed();
    return true;
}

bool Till::resume(const QSharedPointer<Document>& document)
{
    if (!document || obstacleToResuming(*document) ||
        !m_archive.moveOrShow(document, {.state = Document::State::Open})) {
        return false;
    }
    makeCurrent(document);
    notifyRestored();
    return true;
}

bool Till::returnSale(const QSharedPointer<Document>& sale)
{
    return sale && returnPositions(sale, returnablePositions(*sale));
}

bool Till::returnPositions(const QSharedPointer<Document>& sale, const QSet<int>& positions)
{
    const QSet<int> chosen = sale ? returnablePositions(*sale) & positions : QSet<int>();
    if (chosen.isEmpty() || obstacleToReturning(*sale, chosen)) {
        return false;
    }
    const QSharedPointer<Document> document = Document::returnOf(*sale, chosen, m_numbers.next(), now());
    // The sale first: a return that its sale does not know could be opened twice.
    sale->addReturn(document->getNumber());
    if (!m_archive.saveOrShow(sale)) {
        return false;
    }
    if (!m_store.saveOrShow(document)) {
        QFile::remove(m_store.file()); // it may be there, only not synced
        return false;
    }
    makeCurrent(document);
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentOpened));
    emit changed();
    return true;
}

bool Till::voidDocument(const QSharedPointer<Document>& document)
{
    if (!document || obstacleToVoiding(*document)) {
        return false;
    }
    const Document::State before = document->getState();
    Document::Ending ending = document->ending();
    ending.state = Document::State::Voided;
    ending.voided = now();
    ending.voidingBegun = false;
    if (!ending.finished.isValid()) {
        ending.finished = ending.voided;
    }
    if (!m_archive.moveOrShow(document, ending)) {
        return false;
    }
    emit voided(*document, before);
    Singleton<RequestJournal>::get()->finishDocument(document->identifier());
    return true;
}

bool Till::end(const Document::Ending& ending, EActivityListener::Event event)
{
    if (!m_archive.moveOrShow(m_document, ending)) {
        return false;
    }
    Singleton<RequestJournal>::get()->finishDocument(m_document->identifier());
    if (ending.state == Document::State::Closed && m_printing) {
        m_printing(*m_document);
    }
    Singleton<ActivityNotifier>::get()->notify(Event(event));
    makeCurrent(nullptr);
    emit changed();
    return true;
}

/// What plug-ins did to the positions of a return also holds for the sale, even when the return is cancelled later.
bool Till::writeBackToSale() const
{
    const QSharedPointer<Document> sale = m_archive.find(m_document->getReturnedSale());
    if (!sale) {
        return true; // nothing to keep in step
    }
    sale->takeOverPluginData(*m_document);
    return m_archive.saveOrShow(sale);
}

/// Read from the archive when the first document is closed: a document may be closed before one is restored. A number
/// whose closing could not be saved is left out.
int Till::nextClosing()
{
    if (!m_closings) {
        m_closings = m_archive.closings();
    }
    m_archive.noteClosing({.count = ++*m_closings, .document = m_document->getNumber()});
    return *m_closings;
}

void Till::notifyRestored()
{
    emit changed(); // first: a plug-in may ask about the document
    Event restored(EActivityListener::DocumentRestored);
    restored.addArgument(u"document"_s, QVariant::fromValue(m_document.staticCast<AbstractDocument>()));
    Singleton<ActivityNotifier>::get()->notify(restored);
    emit changed();
}

void Till::showDamage(const DamagedDocumentFile& damaged) const
{
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"The saved document is damaged: "_s + damaged.failure.detail + u"; set aside as "_s +
                damaged.setAside);
    Dialog::create()->showMessage(tr::Tr(u"savedReceiptDamaged"_s,
                                         u"Сохранённый чек повреждён и не восстановлен: %1\nФайл отложен: %2\n"
                                         "Сообщите администратору. Можно открыть новый чек."_s)
                                      .arg(damaged.failure.text.ui())
                                      .arg(damaged.setAside),
                                  Dialog::Error, 1, 0);
}
