// SPDX-License-Identifier: MIT
#include "activitynotifier.h"
#include "currenttime.h"
#include "dialog.h"
#include "sale.h"

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

void Sale::restore(const ReceiptStore::Loaded& loaded)
{
    m_numbers.pass(m_archive.greatestNumber());
    if (loaded.receipt) {
        m_numbers.pass(loaded.receipt->getNumber());
    }
    const QSharedPointer<Receipt> open = m_archive.tidyUp(loaded.receipt);
    if (!loaded.damage.isEmpty()) {
        tellDamage(loaded); // only now: while the message stands, a key pressed before may open a receipt
    }
    if (!open) {
        return;
    }
    makeCurrent(open);
    tellRestored();
}

bool Sale::close(Kopecks received)
{
    if (!m_receipt || received < m_receipt->getSum()) {
        return false;
    }
    if (m_receipt->isCancelling() && !writeBackToSale()) {
        return false;
    }
    return end(Receipt::State::Closed, received, EActivityListener::ReceiptClosed);
}

bool Sale::cancel()
{
    if (!m_receipt || (m_receipt->isCancelling() && !writeBackToSale())) {
        return false;
    }
    return end(Receipt::State::Cancelled, 0, EActivityListener::ReceiptCancelled);
}

bool Sale::putAside()
{
    if (!m_receipt || m_receipt->isCancelling() || !m_archive.move(m_receipt, {.state = Receipt::State::PutAside})) {
        return false;
    }
    makeCurrent(nullptr);
    emit changed();
    return true;
}

bool Sale::takeUp(const QSharedPointer<Receipt>& document)
{
    if (m_receipt || !document || document->getState() != Receipt::State::PutAside ||
        !m_archive.move(document, {.state = Receipt::State::Open})) {
        return false;
    }
    makeCurrent(document);
    tellRestored();
    return true;
}

bool Sale::takeBack(const QSharedPointer<Receipt>& sale)
{
    if (m_receipt || !sale || sale->getType() != AbstractDocument::Sale || sale->getState() != Receipt::State::Closed ||
        m_archive.isTakenBack(*sale, nullptr)) {
        return false;
    }
    const QSharedPointer<Receipt> document = Receipt::cancelling(*sale, m_numbers.next(), now());
    // First the sale: a cancelling document that the sale does not know of could be opened twice.
    sale->setTakenBackBy(document->getNumber());
    if (!m_archive.save(sale)) {
        return false;
    }
    if (!m_store.save(document)) {
        QFile::remove(m_store.file()); // it may stand there, only not synced
        return false;
    }
    makeCurrent(document);
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::ReceiptOpened));
    emit changed();
    return true;
}

bool Sale::annul(const QSharedPointer<Receipt>& document)
{
    const Receipt::State before = document->getState();
    Receipt::Ending ending = document->ending();
    ending.state = Receipt::State::Annulled;
    ending.annulled = now();
    if (!ending.finished.isValid()) {
        ending.finished = ending.annulled;
    }
    if (!m_archive.move(document, ending)) {
        return false;
    }
    emit annulled(*document, before);
    return true;
}

bool Sale::end(Receipt::State state, Kopecks received, EActivityListener::Event event)
{
    if (!m_archive.move(m_receipt, {.state = state, .finished = now(), .received = received})) {
        return false;
    }
    if (state == Receipt::State::Closed && m_printing) {
        m_printing(*m_receipt);
    }
    Singleton<ActivityNotifier>::get()->notify(Event(event));
    makeCurrent(nullptr);
    emit changed();
    return true;
}

/// What plug-ins did with the positions of the cancelling document holds for the sale too, even when the document is
/// given up afterwards.
bool Sale::writeBackToSale() const
{
    const QSharedPointer<Receipt> sale = m_archive.find(m_receipt->getTakesBack());
    if (!sale) {
        return true; // nothing to keep in step
    }
    sale->takeOverPluginData(*m_receipt);
    return m_archive.save(sale);
}

void Sale::tellRestored()
{
    Event restored(EActivityListener::DocumentRestored);
    restored.addArgument(u"document"_s, QVariant::fromValue(m_receipt.staticCast<AbstractDocument>()));
    Singleton<ActivityNotifier>::get()->notify(restored);
    emit changed();
}

void Sale::tellDamage(const ReceiptStore::Loaded& loaded) const
{
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"The saved receipt is damaged: "_s + loaded.damage + u"; set aside as "_s + loaded.setAside);
    Dialog::create()->showMessage(tr::Tr(u"savedReceiptDamaged"_s,
                                         u"Сохранённый чек повреждён и не восстановлен: %1\nФайл отложен: %2\n"
                                         "Сообщите администратору. Можно открыть новый чек."_s)
                                      .arg(loaded.damage)
                                      .arg(loaded.setAside),
                                  Dialog::Error, 1, 0);
}
